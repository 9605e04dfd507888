// The file of the user keys.
#include "shell/user_keys.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "support/memory_files.h"

namespace tvx {
namespace {

using Keys = std::vector<std::string>;

constexpr char kPath[] = "c:\\marlo\\UserKey.txt";

// Keys 1 to 12 without the empty ones at the end.
Keys Set(const Keys& keys) {
  Keys set(keys.begin() + 1, keys.begin() + 1 + kLastUserKey);
  while (!set.empty() && set.back().empty()) set.pop_back();
  return set;
}

TEST(UserKeys, LinesOfTheFile) {
  const std::string fifty(50, 'x');
  struct {
    std::string text;
    Keys keys;
  } const cases[] = {
      {"", {}},
      {"any header", {}},
      {"h\r\nM08\r\n\r\nG04 P500  \t\r\nlast", {"M08", "", "G04 P500", "last"}},
      {"h\nM08\n", {"M08"}},
      {"h\n  leading\n", {"  leading"}},
      {"h\nM00 (확인)\n", {"M00 (확인)"}},
      {"h\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n",
       {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"}},
      {std::string(300, 'h') + "\n" + fifty + "y\nz\n", {fifty, "z"}},
      {"h\nab" + std::string(60, ' ') + "c\nz", {"ab", "z"}},
      {"h\n" + fifty + "\r\nz", {fifty, "z"}},
      {"h\nx" + fifty.substr(2) + "한\nz", {"x" + fifty.substr(2), "z"}},
  };
  for (const auto& c : cases) {
    MemoryFiles files;
    files.Put(kPath, EncodeCp949(c.text));
    Keys keys(kUserKeyElements, "before");
    ReadUserKeys("c:\\marlo", &keys, &files);
    EXPECT_EQ(Set(keys), c.keys) << c.text;
    EXPECT_EQ(keys.size(), kUserKeyElements);
    EXPECT_EQ(keys[0], "");
    EXPECT_EQ(keys[13], "");
  }
}

TEST(UserKeys, WithoutAFileAllAreEmpty) {
  MemoryFiles files;
  Keys keys;
  ReadUserKeys("c:\\marlo", &keys, &files);
  EXPECT_EQ(keys, Keys(kUserKeyElements));
}

TEST(UserKeys, TheBytesWritten) {
  MemoryFiles files;
  Keys keys(kUserKeyElements);
  WriteUserKeys("c:\\marlo", keys, &files);
  std::string empty = "=======USER KEY======\r\n";
  for (int n = 1; n <= 12; ++n) empty += "\r\n";
  EXPECT_EQ(files.Bytes(kPath), empty);

  keys[1] = "G04 P500 ";
  keys[2] = "확인";
  keys[12] = "M30";
  WriteUserKeys("c:\\marlo", keys, &files);
  EXPECT_EQ(files.Bytes(kPath),
            "=======USER KEY======\r\nG04 P500 \r\n\xC8\xAE\xC0\xCE\r\n"
            "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\nM30\r\n");

  Keys read;
  ReadUserKeys("c:\\marlo", &read, &files);
  keys[1] = "G04 P500";  // the blank behind it is gone
  EXPECT_EQ(read, keys);
}

// A leading byte without its second one, at the limit and in front of the line end.
TEST(UserKeys, HalfACharacterComesBack) {
  MemoryFiles files;
  const std::string bytes = "h\r\n" + std::string(49, 'x') + "\xB2\r\n";
  files.Put(kPath, bytes);
  Keys keys;
  ReadUserKeys("c:\\marlo", &keys, &files);
  WriteUserKeys("c:\\marlo", keys, &files);
  EXPECT_EQ(files.Bytes(kPath).substr(sizeof("=======USER KEY======\r\n") - 1, 52),
            bytes.substr(3));
}

TEST(UserKeys, AFailedWriteLeavesTheOldFile) {
  MemoryFiles files;
  files.Put(kPath, "old");
  files.RefuseWrite(1);
  WriteUserKeys("c:\\marlo", Keys(kUserKeyElements), &files);
  WriteUserKeys("c:\\none", Keys(kUserKeyElements), &files);
  EXPECT_EQ(files.Bytes(kPath), "old");
}

}  // namespace
}  // namespace tvx
