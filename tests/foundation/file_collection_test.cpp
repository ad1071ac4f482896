#include "foundation/file_collection.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

std::string NamesOf(const FileCollection& collection) {
  std::string names;
  for (const FileEntry& entry : collection) names += ToUtf8(entry.name) + " ";
  return names;
}

FileEntry Entry(const Text& name, double modified) {
  return {.name = name, .path = u"C:\\Temp\\" + name, .lastModified = Date{modified}};
}

TEST(FileCollection, TakingOutTheNewestAtOnceIsTakingThemOutOneByOne) {
  MemoryPlatform computer;
  unsigned state = 1;  // a small generator of its own, so that each run sees the same times, many of them equal
  for (int count = 0; count <= 12; ++count) {
    FileCollection all(computer.files);
    for (int index = 0; index < count; ++index) {
      state = state * 1103515245u + 12345u;
      all.Add(Entry(DecimalText(index), (state >> 16) % 4));
    }
    for (int taken = -1; taken <= count + 1; ++taken) {
      FileCollection atOnce = all;
      atOnce.RemoveNewestTop(taken);
      FileCollection oneByOne = all;
      for (int time = 0; time < taken; ++time) oneByOne.RemoveNewest();
      EXPECT_EQ(NamesOf(atOnce), NamesOf(oneByOne)) << taken << " of " << count;
    }
  }
}

TEST(FileCollection, EntriesAreFoundByPositionAndName) {
  MemoryPlatform computer;
  FileCollection collection(computer.files);
  EXPECT_EQ(collection.FindIndexOfNewest(), 0);
  EXPECT_TRUE(collection.IsEmpty());
  for (const FileEntry& entry : {Entry(u"a", 1), Entry(u"b", 2), Entry(u"c", 2)}) collection.Add(entry);
  EXPECT_EQ(collection.FindIndexOfNewest(), 2) << "the first of equals";
  EXPECT_EQ(collection.Item(3).path, u"C:\\Temp\\c");
  EXPECT_EQ(collection.Item(u"C").path, u"C:\\Temp\\c");
  EXPECT_TRUE(collection.ContainsName(u"B"));
  collection.Remove(u"b");
  collection.Remove(1);
  EXPECT_EQ(NamesOf(collection), "c ");
  const Error position = ErrorOf([&] { collection.Item(2); });
  EXPECT_EQ(Shown(position.description()),
            "Neočekávaná chyba -> 9 - Subscript out of range -> \"[zorKancA].FileCollection.Item\".");
  EXPECT_EQ(Shown(ErrorOf([&] { collection.Remove(u"b"); }).source()),
            "[zorKancA].FileCollection.Remove->\\r\\n\\r\\n[Detaily: keyOrIndex = \"b\"]");
  collection.clear();
  EXPECT_EQ(collection.Count(), 0);
}

TEST(FileCollection, FilesOfAFolderComeInTheOrderOfTheirNamesAndCanBeFiltered) {
  MemoryPlatform computer;
  for (const TextView name : {u"b1", u"B2", u"a1", u"b3"}) computer.files.Put(u"C:\\Temp\\" + Text(name), "");
  FileCollection collection(computer.files);
  collection.Add(Entry(u"first", 0));
  collection.AddFromFolder(u"C:\\Temp");
  EXPECT_EQ(NamesOf(collection), "first B2 a1 b1 b3 ");
  EXPECT_EQ(NamesOf(collection.Filter(u"b#")), "b1 b3 ");
  EXPECT_EQ(NamesOf(collection.GetFromFolder(u"C:\\Temp")), "B2 a1 b1 b3 ");
  EXPECT_EQ(ErrorOf([&] { collection.Filter(u"["); }).number(), -2147220991);

  const Error noLog = ErrorOf([&] { collection.QuietDelete(nullptr); });
  EXPECT_EQ(Shown(noLog.source()), "FileCollection.QuietDelete");
  EXPECT_EQ(Shown(noLog.description()), "Neočekávaná hodnota \"Nothing\" pro \"log\".");
  EXPECT_EQ(computer.files.Paths().size(), 4u);
}

}  // namespace
}  // namespace zorkanca::testing
