#include "foundation/argument_details.h"

#include <gtest/gtest.h>
#include "foundation/argument_error.h"
#include "foundation/err_data.h"
#include "foundation/error_codes.h"
#include "foundation/error_routines.h"
#include "foundation/guarded.h"
#include "foundation/invalid_operation_err.h"
#include "foundation/unexpected_value_error.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

void ExpectError(const Error& error, std::int32_t number, TextView source, TextView description) {
  EXPECT_EQ(error.number(), number);
  EXPECT_EQ(Shown(error.source()), Shown(source));
  EXPECT_EQ(Shown(error.description()), Shown(description));
}

[[noreturn]] void FailInX() {
  throw Error(5, u"X", u"Invalid procedure call");
}

/// Runs the body while the error of `FailInX` is being handled.
template <typename Body>
auto WhileHandling(Body body) {
  try {
    FailInX();
  } catch (...) {
    return body();
  }
}

TEST(ErrData, HoldsTheErrorBeingHandled) {
  const ErrData none;
  EXPECT_EQ(none.number, 0);
  EXPECT_TRUE(none.description.empty() && none.source.empty());
  ErrData data = WhileHandling([] { return ErrData(); });
  EXPECT_EQ(data.number, 5);
  EXPECT_EQ(Shown(data.source), "X");
  EXPECT_EQ(Shown(data.ToString()),
            "Neočekávaná chyba -> 5 - Invalid procedure call -> \"[zorKancA].\".\\r\\n\\r\\n"
            "(Zdroj: [zorKancA].->\\r\\nX)");
  ExpectError(ErrorOf([&] { data.RaiseAsInternalError(u"A.b", u"p = 1"); }), -2147220991,
              u"[zorKancA].A.b->\r\nX\r\n[Detaily: p = 1]",
              u"Neočekávaná chyba -> 5 - Invalid procedure call -> \"[zorKancA].A.b\".");
  EXPECT_EQ(Shown(data.BuildErrorMessage(u"A.b", u"p = 1")),
            "Neočekávaná chyba -> 5 - Invalid procedure call -> \"[zorKancA].A.b\".\\r\\n\\r\\n"
            "(Zdroj: [zorKancA].A.b->\\r\\nX\\r\\n[Detaily: p = 1])");
  data.FillWithCurrentErr();
  EXPECT_EQ(data.number, 0);
}

TEST(UnexpectedError, KeepsTheSavedErrorApartFromTheCurrentOne) {
  UnexpectedError error = WhileHandling([] { return UnexpectedError(); });
  ExpectError(ErrorOf([&] { error.RaiseSavedErrorAsUnexpected(u"A.b", u""); }), -2147220991, u"[zorKancA].A.b->\r\nX",
              u"Neočekávaná chyba -> 5 - Invalid procedure call -> \"[zorKancA].A.b\".");
  ExpectError(ErrorOf([&] { error.RaiseCurrentErrorAsUnexpected(u"A.b", u""); }), -2147220991, u"[zorKancA].A.b->\r\n",
              u"Neočekávaná chyba -> 0 -  -> \"[zorKancA].A.b\".");
  EXPECT_EQ(error.savedError.number, 5);
  error.SaveCurrentError();
  EXPECT_EQ(error.savedError.number, 0);
}

TEST(Guarded, NestedOperationsMakeAChainWithTheOuterOneFirst) {
  const auto inner = [](std::int32_t count) {
    return Guarded(u"Inner.Count", ArgumentDetails({{u"count", count}, {u"text", Text(u"a\"b")}}),
                   [&] { return count < 0 ? (FailInX(), 0) : count + 1; });
  };
  int detailsBuilt = 0;
  const auto outer = [&](std::int32_t count) {
    return Guarded(
        u"Outer.Count", [&] { return Text(static_cast<std::size_t>(detailsBuilt++), u' '); },
        [&] { return inner(count); });
  };
  EXPECT_EQ(outer(1), 2);
  EXPECT_EQ(detailsBuilt, 0) << "details cost nothing while all goes well";
  ExpectError(ErrorOf([&] { outer(-1); }), -2147220991,
              u"[zorKancA].Outer.Count->\r\n[zorKancA].Inner.Count->\r\nX\r\n[Detaily: count = -1; text = \"a\"b\"]",
              u"Neočekávaná chyba -> -2147220991 - Neočekávaná chyba -> 5 - Invalid procedure call -> "
              u"\"[zorKancA].Inner.Count\". -> \"[zorKancA].Outer.Count\".");
  const auto fails = [](const auto& body) {
    return ErrorOf([&] {
      Guarded(
          u"F", [] { return Text(); }, body);
    });
  };
  EXPECT_EQ(Shown(fails([] { throw std::bad_alloc(); }).description()),
            "Neočekávaná chyba -> 7 - Out of memory -> \"[zorKancA].F\".");
}

TEST(ErrorRoutines, Texts) {
  EXPECT_EQ(Shown(ErrorRoutines::BuildUnexpectedErrorDescription(-5, u"Popis", u"A.b", u"app")),
            "Neočekávaná chyba -5 - \"Popis\" -> \"[app].A.b\".");
  EXPECT_EQ(Shown(ErrorRoutines::BuildUnexpectedValueErrorDescription(u"v", u"n", u"t")),
            "Neočekávaná hodnota \"v\" pro \"n\". [Detaily: t]");
  EXPECT_EQ(Shown(ErrorRoutines::AppendDetailsIfTheyAreNotBlank(u"text", u"  ")), "text");
  EXPECT_EQ(Shown(ErrorRoutines::AppendDetails(u"text", u"t")), "text [t]");
  EXPECT_EQ(Shown(ErrorRoutines::AppendDetails(u"text", u" ")), "text");
  EXPECT_EQ(Shown(ErrorRoutines::BuildErrorSource(u"A.b", u"X", u"t")), "[zorKancA].A.b->\\r\\nX [Detaily: t]");
  const Error blank = ErrorOf([] { ErrorRoutines::BuildUnexpectedErrorDescription(5, u" ", u"A.b", u"app"); });
  ExpectError(blank, -2147220990, u"[zorKancA].ErrorRoutines.BuildUnexpectedErrorDescription",
              u"Neočekávaná hodnota \" \" pro \"errorDescription\".\r\n[Očekáváno: Argument nesmí být nevyplněný "
              u"řetězec]\r\n\r\n[zorKancA].ErrorRoutines.BuildUnexpectedErrorDescription");
}

TEST(ArgumentError, ChecksRaiseOnlyForTheirOwnFault) {
  ArgumentError argumentError;
  argumentError.StringArgumentMustNotBeEmpty(u"  ", u"name", u"A.b");
  argumentError.StringArgumentMustNotBeBlank(u"\t", u"name", u"A.b");
  argumentError.ObjectArgumentMustNotBeNothing(&argumentError, u"name", u"A.b");
  ExpectError(ErrorOf([&] { argumentError.ObjectArgumentMustNotBeNothing(nullptr, u"name", u"A.b"); }), -2147220990,
              u"A.b", u"Neočekávaná hodnota \"Nothing\" pro \"name\".");
  argumentError.SourceInfoText = u"odjinud";
  ExpectError(ErrorOf([&] { argumentError.StringArgumentMustNotBeEmpty(u"", u"name", u"A.b"); }), -2147220990, u"A.b",
              u"Neočekávaná hodnota \"[Prázdný řetězec]\" pro \"name\".\r\n[Očekáváno: Argument nesmí být prázdný "
              u"řetězec]\r\n\r\nA.b\r\n\r\nodjinud");
  argumentError.SourceInfoText.clear();
  ExpectError(ErrorOf([&] { argumentError.StringArgumentMustNotBeBlank(u"  ", u"name", u"A.b"); }), -2147220990,
              u"[zorKancA].A.b",
              u"Neočekávaná hodnota \"  \" pro \"name\".\r\n[Očekáváno: Argument nesmí být nevyplněný řetězec]\r\n\r\n"
              u"[zorKancA].A.b");
  EXPECT_EQ(argumentError.BuildStringArgumentIsBlankErrorDescription(u"n", u"", u"A.b"),
            argumentError.BuildArgumentErrorDescription(u"n", u"", u"Argument nesmí být nevyplněný řetězec", u"A.b"));
}

TEST(ArgumentError, ABlankNameOfTheArgumentOrTheFunctionIsAFaultItself) {
  const ArgumentError argumentError;
  const Error unnamed = ErrorOf([&] { argumentError.StringArgumentMustNotBeEmpty(u"x", u" ", u"A.b"); });
  EXPECT_EQ(unnamed.number(), -2147220990);
  EXPECT_EQ(Shown(unnamed.source()), "[zorKancA].ArgumentError.StringArgumentMustNotBeEmpty");
  EXPECT_NE(Shown(unnamed.description()).find("\" \" pro \"argumentName\""), std::string::npos);
  const Error homeless = ErrorOf([&] { argumentError.StringArgumentMustNotBeBlank(u"x", u"name", u""); });
  EXPECT_EQ(Shown(homeless.source()), "[zorKancA].ArgumentError.StringArgumentMustNotBeBlank");
  EXPECT_NE(Shown(homeless.description()).find("\"\" pro \"sourceFunctionName\""), std::string::npos);
  EXPECT_EQ(ErrorOf([&] { argumentError.RaiseArgumentIsNothingError(u"", u"A.b"); }).number(), -2147220991);
  EXPECT_EQ(ErrorOf([&] { argumentError.RaiseArgumentError(u"", u"v", u"e", u"A.b"); }).number(), -2147220991);
}

TEST(UnexpectedValueError, RaisesAnArgumentErrorAndWrapsItsOwnFailure) {
  ExpectError(ErrorOf([] { UnexpectedValueError::RaiseUnexpectedValueError(u"n", u"v", u"A.b", u""); }), -2147220990,
              u"A.b", u"Neočekávaná hodnota \"v\" pro \"n\".");
  const Error wrapped = ErrorOf([] { UnexpectedValueError::RaiseUnexpectedValueError(u"", u"v", u"A.b", u"d"); });
  EXPECT_EQ(wrapped.number(), -2147220991);
  EXPECT_EQ(Shown(wrapped.source()),
            "[zorKancA].UnexpectedError.RaiseUnexpectedValueError->\\r\\n[zorKancA].UnexpectedError.BuildDescription"
            "\\r\\n[Detaily: valueName = \"\"; value = \"v\"; sourceFunctionName = \"A.b\"; details = \"d\".]");
}

TEST(InvalidOperationErr, RaisesItsDescription) {
  ExpectError(ErrorOf([] { InvalidOperationErr::RaiseError(u"D", u"F", u""); }), -2147220987, u"[zorKancA].F", u"D");
  ExpectError(ErrorOf([] { InvalidOperationErr::RaiseError(u"D", u"F", u"t"); }), -2147220987, u"[zorKancA].F",
              u"D [Detaily: t]");
  EXPECT_EQ(ErrorOf([] { InvalidOperationErr::RaiseError(u" ", u"F", u""); }).number(), ArgumentErrorCode);
}

}  // namespace
}  // namespace zorkanca::testing
