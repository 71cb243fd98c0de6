// The information box: its lines, its bound and its close; the viewer's close.
#include "acq_fixture.h"

#include "acquisition/viewer.h"
#include "workstation/help_box.h"

using acqtest::AcqTest;

namespace {

class InfoBox : public AcqTest {};

TEST_F(InfoBox, LinesAreAddedWithCrLfAnEmptyTextClearsAndClosingOnlyHides) {
    auto& box = ws.fm_help.txt_help;
    station::help_msg(ws, "Re-indexing");
    // Closing only hides the box; a job goes on adding to it.
    ws.fm_help.form.setVisible(true);
    EXPECT_TRUE(station::fm_help_QueryUnload(ws));
    EXPECT_FALSE(ws.fm_help.form.visible());
    station::help_msg(ws, "Record 100");
    EXPECT_EQ(box.text(), "Re-indexing\r\nRecord 100\r\n");
    station::help_msg(ws, "");
    EXPECT_EQ(box.text(), "");
    station::help_msg(ws, "");
    EXPECT_EQ(box.text(), ""); // no line added by the empty text

    // The viewer too is only hidden, its labels as they were.
    ws.more_data.form.setVisible(true);
    ws.more_data.lbl_GasUnits.setCaption("12.5");
    EXPECT_TRUE(acq::more_data_QueryUnload(ws));
    EXPECT_FALSE(ws.more_data.form.visible());
    EXPECT_EQ(ws.more_data.lbl_GasUnits.caption(), "12.5");
}

TEST_F(InfoBox, The6001stCharacterCutsTheBoxToItsLast5000) {
    auto& box = ws.fm_help.txt_help;
    // 5998 characters plus CR LF: exactly 6000, kept whole.
    station::help_msg(ws, QString(5998, QChar('a')));
    EXPECT_EQ(box.text().size(), 6000);
    // One more character with its CR LF passes 6000.
    station::help_msg(ws, "b");
    EXPECT_EQ(box.text().size(), 5000);
    EXPECT_TRUE(box.text().endsWith("a\r\nb\r\n"));
}

} // namespace
