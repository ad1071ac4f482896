// Databases of clients: what is asked of them, and those that lack something.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/text_support.h"
#include "win32/database/dao_database.h"
#include "win32/fake_automation.h"

namespace zorkanca::testing {
namespace {

class DaoDatabases : public ::testing::Test {
 protected:
  DaoDatabases() {
    for (const char* truth : {"BOF", "EOF"}) world_.values[truth] = ToVariant(false);
    for (const char* number : {"RecordCount", "Count", "Size"}) world_.values[number] = ToVariant(30);
    world_.values["Type"] = ToVariant(std::int16_t{10});
    world_.values["Name"] = ToVariant(u"Název");
    world_.values["Value"] = ToVariant(u"ž");
  }
  ~DaoDatabases() override { EXPECT_EQ(world_.living, 0) << "a reference was not given back"; }

  std::unique_ptr<Recordset> Opened() {
    return win32::DaoDatabase(world_.Root()).OpenRecordset(u"SELECT 1", RecordsetType::kDynaset, 4);
  }

  FakeWorld world_;
};

TEST_F(DaoDatabases, MembersAreThoseOfDao) {
  {
    const auto records = Opened();
    const std::string at = "OpenRecordset(\"SELECT 1\", 2%, 4%)";
    EXPECT_FALSE(records->Bof());
    EXPECT_FALSE(records->Eof());
    records->MoveLast();
    EXPECT_EQ(records->RecordCount(), 30);
    records->MoveFirst();
    records->MoveNext();
    EXPECT_EQ(records->FieldCount(), 30);
    EXPECT_EQ(world_.Lines(), at + ".BOF | " + at + ".EOF | " + at + ".MoveLast() | " + at + ".RecordCount | " + at +
                                  ".MoveFirst() | " + at + ".MoveNext() | " + at + ".Fields.Count");
    Field& field = records->FieldAt(3);
    EXPECT_EQ(&records->FieldAt(3), &field) << "asked for once";
    EXPECT_EQ(field.Name(), u"Název");
    EXPECT_EQ(field.Name(), u"Název");
    EXPECT_EQ(field.Type(), FieldType::kText);
    EXPECT_EQ(field.Size(), 30);
    EXPECT_EQ(field.Value(), Value(Text(u"ž")));
    EXPECT_EQ(field.Value(), Value(Text(u"ž")));
    const std::string third = at + ".Fields(3)";
    EXPECT_EQ(world_.Lines(),
              third + ".Name | " + third + ".Type | " + third + ".Size | " + third + ".Value | " + third + ".Value");
    EXPECT_EQ(records->FieldNamed(u"id").Value(), Value(Text(u"ž")));
    EXPECT_EQ(world_.Lines(), at + ".Fields(\"id\").Value");
    records->Close();
    EXPECT_EQ(world_.Lines(), at + ".Close()");
  }
  EXPECT_EQ(world_.Lines(), "") << "closed once";
}

TEST_F(DaoDatabases, AbandonedRecordsetsAreClosed) {
  Opened().reset();
  EXPECT_EQ(world_.Lines(), "OpenRecordset(\"SELECT 1\", 2%, 4%).Close()");
  world_.failures["Close"] = RPC_E_DISCONNECTED;
  Opened().reset();
}

TEST_F(DaoDatabases, WhatIsMissingOrFailsIsTold) {
  EXPECT_EQ(ErrorOf([] { win32::DaoDatabase(LateObject()).OpenRecordset(u"x", RecordsetType::kDynaset, 0); }).number(),
            91);
  world_.nothing = {"OpenRecordset"};
  EXPECT_EQ(ErrorOf([&] { Opened(); }).number(), 91);
  world_.nothing.clear();
  const auto records = Opened();
  world_.missing = {"EOF", "RecordCount"};
  EXPECT_EQ(ErrorOf([&] { records->Eof(); }).number(), 438);
  EXPECT_EQ(ErrorOf([&] { records->RecordCount(); }).number(), 438);
  world_.reports["Value"] = {.scode = static_cast<SCODE>(0x800A0BCD), .source = L"DAO.Field", .description = L"Konec"};
  const Error error = ErrorOf([&] { records->FieldAt(0).Value(); });
  EXPECT_EQ(error.number(), 3021);
  EXPECT_EQ(error.source(), u"DAO.Field");
  world_.reports.clear();
  world_.reports[""] = {.scode = static_cast<SCODE>(0x800A0CC1)};
  EXPECT_EQ(ErrorOf([&] { records->FieldNamed(u"nic"); }).number(), 3265);
  world_.reports.clear();
  world_.values["Value"] = ToVariant(1);
  EXPECT_EQ(records->FieldAt(0).Value(), Value(1)) << "goes on after a failure";
}

}  // namespace
}  // namespace zorkanca::testing
