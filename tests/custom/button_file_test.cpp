#include "custom/buttons/button_file.h"

#include <gtest/gtest.h>

#include "tests/fakes/print.h"

namespace korvane {
namespace {

TEST(ButtonFile, ReadsTheFieldsOfEachLine) {
  const ButtonFile file = readButtons(
      "Music@@#160@@#260.5@@#MUSIC@@#150@@#260@@#14\r\n\n"
      "@@#-4@@#1,25@@#/usr/bin/xeyes@@#72@@#1e2@@#9\n");
  const std::vector<CustomButton> wanted{
      {u"Music"_s, 160, 260.5F, u"MUSIC"_s, 150, 260, 14, false},
      {QString(), -4, 1.25F, u"/usr/bin/xeyes"_s, 72, 100, 9, false}};
  EXPECT_EQ(file.buttons, wanted);
  EXPECT_TRUE(file.broken.empty());
}

TEST(ButtonFile, ABrokenLineIsSkippedToldAndKept) {
  const QByteArray good = "Good@@#1@@#2@@#MUSIC@@#80@@#90@@#12";
  const std::pair<QByteArray, const char*> table[] = {
      {"x@@#1", "it has 2 fields, not 7"},
      {"with @@# in it@@#1@@#2@@#MUSIC@@#80@@#90@@#12", "it has 8 fields, not 7"},
      {"A@@#one@@#2@@#MUSIC@@#80@@#90@@#12", "its left \"one\" is no number from -10000 to 10000"},
      {"A@@#1@@#2@@#MUSIC@@#0@@#90@@#12", "its height \"0\" is no number from 8 to 4000"},
      {"A@@#1@@#2@@#MUSIC@@#80@@#nan@@#12", "its width \"nan\" is no number from 8 to 4000"},
      {"A@@#1@@#2@@#MUSIC@@#80@@#90@@#1e40", "its font size \"1e40\" is no number from 1 to 200"},
      {QByteArray(201, 'c') + "@@#1@@#2@@#MUSIC@@#80@@#90@@#12", "its caption is too long"},
      {"A@@#1@@#2@@#" + QByteArray(4097, 'p') + "@@#80@@#90@@#12", "its action is too long"},
  };
  for (const auto& [line, trouble] : table) {
    const ButtonFile file = readButtons(good + "\n" + line + "\r\n" + good);
    EXPECT_EQ(file.buttons.size(), 2U) << trouble;
    ASSERT_EQ(file.broken.size(), 1U) << trouble;
    EXPECT_EQ(file.broken[0].number, 2);
    EXPECT_EQ(file.broken[0].trouble, QString::fromLatin1(trouble));
    EXPECT_EQ(writeButtons(file.buttons, file.unread), good + "\n" + good + "\n" + line + "\r\n");
  }
}

TEST(ButtonFile, HoldsSoManyButtonsAndSoManyBytes) {
  const QByteArray line = "A@@#1@@#2@@#MUSIC@@#80@@#90@@#12\n";
  const ButtonFile many = readButtons(line.repeated(103));
  EXPECT_EQ(many.buttons.size(), 100U);
  EXPECT_EQ(many.unread.size(), 3) << "none is lost by a save";
  EXPECT_EQ(readButtons(line.repeated(40'000)).broken.size(), 1U);
}

TEST(ButtonFile, BytesComeBackWhateverTheirEncoding) {
  const QByteArray table[] = {
      "Caf\xC3\xA9@@#1@@#2@@#/opt/caf\xC3\xA9@@#80@@#90@@#12\n",  // UTF-8
      "Caf\xE9@@#1@@#2@@#/opt/caf\xE9@@#80@@#90@@#12\n",          // Windows-1252
      "Caf\xC3\xA9@@#1@@#2@@#/opt/caf\xE9@@#80@@#90@@#12\n",      // both
      "A@@#1@@#2@@#C:\\Apps\\A.EXE@@#80@@#90@@#12\n",
      "A@@#0.1@@#-2.5@@#\xEE\xBC\x8A@@#80@@#90@@#12\n",  // a character that an escape looks like
      "A@@#0.1@@#0.001@@#X@@#1000@@#123.456@@#12.5\n",
  };
  for (const QByteArray& bytes : table) {
    const ButtonFile file = readButtons(bytes);
    ASSERT_EQ(file.buttons.size(), 1U);
    EXPECT_EQ(writeButtons(file.buttons), bytes);
  }
  EXPECT_EQ(readButtons(table[1]).buttons[0].caption, u"Café"_s);
}

TEST(ButtonFile, ACaptionThatWindows1252CannotHoldIsWrittenAsUtf8) {
  ButtonFile file = readButtons("Caf\xE9@@#1@@#2@@#MUSIC@@#80@@#90@@#12\n");
  for (const QString& caption : {u"Ω"_s, u"Ã©"_s}) {  // the bytes of the second would read as "é"
    file.buttons[0].caption = caption;
    EXPECT_EQ(readButtons(writeButtons(file.buttons)).buttons[0].caption, caption);
  }
}

}  // namespace
}  // namespace korvane
