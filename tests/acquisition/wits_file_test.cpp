// WITSconfig_V10.txt: the shipped file and the rules of the file form.
#include "acq_fixture.h"
#include "file_bytes.h"

#include "wits/wits_file.h"
#include "wits/wits_roles.h"

#include <QDir>
#include <QFile>

using acqtest::AcqTest;

namespace {

class WitsFile : public AcqTest {
  protected:
    void write(const QByteArray& contents) {
        ASSERT_TRUE(testkit::WriteFile(folder.file("WITSconfig_V10.txt"), contents));
    }
    QString name(int code) const { return wits::WitsItemName(ws, code); }
};

TEST_F(WitsFile, TheShippedFileNamesEveryStandardCodeOfTheRoleTable) {
    wits::LoadWitsFile(ws);
    // The 63xx codes are a rig's own and read "Unknown".
    for (const auto& role : wits::WitsRoleTable())
        for (int code : role.codes) {
            if (code != 0) {
                EXPECT_EQ(name(code) == "Unknown", code >= 6300) << code;
            }
        }
    EXPECT_FALSE(folder.exists("COMMAND_LOG.TXT"));
}

TEST_F(WitsFile, AMissingFileIsLoggedAndAnUnreadableOneReported) {
    QFile::remove(folder.file("WITSconfig_V10.txt"));
    ws.packet.UnitSerial = "KW5";
    wits::LoadWitsFile(ws);
    EXPECT_EQ(name(108), "Unknown");
    EXPECT_EQ(folder.read("COMMAND_LOG.TXT"),
              "KW5 14:07:09  03/05/2024 *** 14:07:09 File not found: WITSconfig_V10.txt\r\n");
    EXPECT_TRUE(ws.fm_Gas_Chart.txt_message.text().isEmpty());

    // A folder where the file should be: reported with the routine's prefix.
    ASSERT_TRUE(QDir(folder.path()).mkdir("WITSconfig_V10.txt"));
    wits::LoadWitsFile(ws);
    EXPECT_TRUE(ws.fm_Gas_Chart.txt_message.text().startsWith("LOAD WITS ERR: "))
        << ws.fm_Gas_Chart.txt_message.text().toStdString();
}

TEST_F(WitsFile, CommentsAndShortLinesAreSkippedAndTheNameFollowsTheFifthCharacter) {
    write("' a comment 0108 Not A Name\r\n"
          "0108 Bit Depth\r\n"
          "0110\r\n"         // four characters: skipped
          "0113-Rate\r\n"    // any fifth character separates
          "12ab Partial\r\n" // the code is the number the first four start with
          "0121 \r\n"        // five characters: a code with an empty name
          "0117 Weight\n"    // a bare LF ends a line too
          "0108 Bit Depth Again\r\n");
    wits::LoadWitsFile(ws);
    const std::pair<int, const char*> names[] = {
        {113, "Rate"},    {12, "Partial"},         {121, ""}, {117, "Weight"},
        {110, "Unknown"}, {108, "Bit Depth Again"}}; // the last line of a code wins
    for (const auto& [code, named] : names) EXPECT_EQ(name(code), named) << code;
}

TEST_F(WitsFile, OnlyThe250FirstLinesAreReadCommentsIncluded) {
    QByteArray f = "' header\r\n' second comment\r\n";
    // Lines 3 to 260: codes 1003 to 1260.
    for (int line = 3; line <= 260; ++line) f += QByteArray::number(1000 + line) + " Item\r\n";
    write(f);
    wits::LoadWitsFile(ws);
    EXPECT_EQ(name(1250), "Item"); // line 250, the last read
    EXPECT_EQ(name(1251), "Unknown");

    // A second load starts from an empty table.
    write("0108 Only\r\n");
    wits::LoadWitsFile(ws);
    EXPECT_EQ(name(1003), "Unknown");
}

} // namespace
