// The mouse and the keys on a drawn chart.
#include "chart/floating_boxes.h"
#include "chart/interaction.h"
#include "chart_fixture.h"

#include <functional>

namespace charttest {
namespace {

using namespace chart;

class InteractionTest : public ChartTest {
  protected:
    // One hour and a half of records from 06:00, a foot every ten, drawn
    // from the newest: the rows below them on the canvas are empty.
    void job(int records = 900) {
        run(records, [](Rec& r, int k) {
            r.set("DEPTH", 1000.0 + k / 10).set("DEPTH_RAW", 1000.0 + k / 10);
            r.set("GAS_UNITS", 10.0 + k % 7);
        });
        open();
        draw();
        ASSERT_GT(ws.chart.RowsDrawn, 0);
    }
    // The first and last canvas rows that hold a record.
    int firstRow() const {
        for (int y = 0; y < kRowSlots; ++y)
            if (ws.chart.RowRecordId[y] != 0) return y;
        return -1;
    }
    int lastRow() const {
        for (int y = kRowSlots - 1; y >= 0; --y)
            if (ws.chart.RowRecordId[y] != 0) return y;
        return -1;
    }
    double right() const { return ws.chart.PlotLeft + 1000; }
    void dblClick(double x, double y) {
        graph_MouseMove(ws, 0, 0, x, y);
        graph_DblClick(ws);
    }
    QString gasText(int32_t id) {
        testkit::RawDb raw(path, testkit::RawDb::Access::ReadOnly);
        return raw.value(QString("SELECT GAS_TEXT FROM OMBRI_DB_010 WHERE ID = %1").arg(id));
    }
    // The one box shown beside a record; 0 for none or several.
    int boxOf(int32_t id) const {
        int found = 0;
        for (int n = 1; n < int(ws.chart.lbl_insert_txt.size()); ++n) {
            const auto& l = ws.chart.lbl_insert_txt[n];
            if (l.Visible && l.Tag == QString::number(id)) found = found ? -1 : n;
        }
        return std::max(found, 0);
    }
};

TEST_F(InteractionTest, PointerReadsTheRowAboveItAndFallsBackOverEmptyRows) {
    job();
    const auto& c = ws.chart;
    const int top = firstRow(), bottom = lastRow();
    ASSERT_LT(bottom + 500, c.ChartBottom) << "the job must leave empty rows";
    const int mid = (top + bottom) / 2;
    struct Case {
        const char* name;
        double x, y;
        int row;
        int cursor;
        bool emptyReadOut;
    } cases[] = {
        {"a drawn row", right(), double(mid), mid - 10, 0, false},
        {"an empty row keeps the last good one", right(), bottom + 300.0, mid - 10, 0, false},
        {"near the top of the canvas", right(), 5, 5, 0, true},
        {"the tick band", c.PlotLeft - 100, double(mid), mid - 10, kUpDownArrow, false},
        {"left of the tick band", c.PlotLeft - 400, double(mid), mid - 10, 0, false},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        if (k.y == 5) {
            // Row 5 is empty too; make it a drawn one to see the short rule.
            ws.chart.RowDepth[5] = 1;
        }
        graph_MouseMove(ws, 0, 0, k.x, k.y);
        EXPECT_EQ(c.LastGoodY, k.row);
        EXPECT_EQ(c.MousePointer, k.cursor);
        const QString readOut = ws.fm_Gas_Chart.lbl_time_depth.caption();
        EXPECT_EQ(readOut == c.UnitSerial, k.emptyReadOut) << readOut.toStdString();
        EXPECT_EQ(readOut.contains("2026/Nov/02"), !k.emptyReadOut) << readOut.toStdString();
    }
    // At or past the bottom of the chart the row 100 above it is read.
    ws.chart.RowDepth[int(c.ChartBottom) - 100] = 5;
    graph_MouseMove(ws, 0, 0, right(), c.ChartBottom + 40);
    EXPECT_EQ(c.LastGoodY, int(c.ChartBottom) - 110);
}

TEST_F(InteractionTest, TwoDoubleClicksChooseAStretchAndRefuseEmptyRows) {
    job();
    auto& c = ws.chart;
    const int top = firstRow(), bottom = lastRow();
    struct Case {
        const char* name;
        double x1, y1, x2, y2;
        bool start, end;
    } cases[] = {
        {"two drawn rows", right(), top + 50.0, right() + 300, bottom - 50.0, true, true},
        // Refused, so the second double click is the first corner.
        {"first on an empty row", right(), bottom + 400.0, right(), top + 50.0, true, false},
        {"second on an empty row", right(), top + 50.0, right(), bottom + 400.0, true, false},
        {"above the chart", right(), c.ChartTop - 100, right(), c.ChartTop - 50, false, false},
        {"left of the plot", c.PlotLeft - 50, top + 50.0, c.PlotLeft - 50, bottom - 50.0, false,
         false},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        graph_KeyPress(ws, kEscape);
        c.Grefresh_count = 3;
        dblClick(k.x1, k.y1);
        dblClick(k.x2, k.y2);
        EXPECT_EQ(c.SelectStartY >= 0, k.start);
        EXPECT_EQ(c.SelectEndY >= 0, k.end);
        EXPECT_EQ(ws.fm_Gas_Chart.sel_type.visible(), k.end);
        EXPECT_EQ(ws.fm_Gas_Chart.ln_selecter.visible(), k.start);
        if (k.start) {
            EXPECT_NE(c.RowRecordId[c.SelectStartY], 0);
            EXPECT_EQ(c.Grefresh_count, c.Grefresh_seconds);
        }
        if (k.end) {
            EXPECT_EQ(c.SelectEndY, int(k.y2));
            // The newer end is the upper one.
            EXPECT_GT(c.RowRecordId[c.SelectStartY], c.RowRecordId[c.SelectEndY]);
        }
    }

    // Between the clicks the line runs to the pointer, and the read-out
    // gives the time between the rows (a record is six seconds).
    graph_KeyPress(ws, kEscape);
    dblClick(right(), top + 50.0);
    EXPECT_EQ(c.lbl_float.Caption, "0 Min");
    const int from = c.RowRecordId[top + 50];
    graph_MouseMove(ws, 0, 0, right() + 500, bottom - 50.0);
    const int to = c.RowRecordId[bottom - 60];
    EXPECT_EQ(c.ln_selecter_X2, right() + 500);
    EXPECT_EQ(c.ln_selecter_Y1, top + 50);
    const int seconds = (from - to) * 6;
    EXPECT_EQ(c.lbl_float.Caption, QTime(0, 0).addSecs(seconds).toString("HH:mm:ss"));

    // Escape clears it; while the chart draws it is left alone.
    dblClick(right(), bottom - 50.0);
    ASSERT_TRUE(ws.fm_Gas_Chart.sel_type.visible());
    c.Gchart_busy = true;
    graph_KeyPress(ws, kEscape);
    EXPECT_GE(c.SelectEndY, 0);
    c.Gchart_busy = false;
    graph_KeyPress(ws, kEscape);
    EXPECT_EQ(c.SelectStartY, -1);
    EXPECT_EQ(c.SelectEndY, -1);
    EXPECT_FALSE(ws.fm_Gas_Chart.sel_type.visible());
    EXPECT_FALSE(ws.fm_Gas_Chart.ln_selecter.visible());
    EXPECT_FALSE(c.lbl_float.Visible);
}

TEST_F(InteractionTest, ShiftDragPutsThePressedRecordUnderTheRelease) {
    job(3000);
    auto& c = ws.chart;
    const int32_t newest = c.LastRecord;
    struct Case {
        const char* name;
        int32_t startTop;
        double pressY, releaseY;
        bool shiftLetGo;
        int32_t wantTop; // -1: the pressed record lands under the release
    } cases[] = {
        {"down the canvas", newest - 1000, 2000, 3000, false, -1},
        {"past the newest record", newest - 100, 1500, 5000, false, newest},
        {"shift let go first", newest - 1000, 2000, 3000, true, newest - 1000},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        c.ChartTopRecord = k.startTop;
        draw();
        const int32_t pressed = c.RowRecordId[int(k.pressY)];
        const int32_t released = c.RowRecordId[int(k.releaseY)];
        ASSERT_NE(pressed, 0);
        graph_MouseDown(ws, kLeftButton, kShiftMask, right(), k.pressY);
        const double tagTop = c.lbl_timedate.size() > 1 ? c.lbl_timedate[1].Top : 0;
        graph_MouseMove(ws, kLeftButton, kShiftMask, right(), k.releaseY);
        if (c.lbl_timedate.size() > 1) {
            EXPECT_NEAR(c.lbl_timedate[1].Top, tagTop + k.releaseY - k.pressY, 1e-6);
        }
        if (k.shiftLetGo) {
            graph_KeyUp(ws, 16, 0);
            graph_MouseUp(ws, kLeftButton, 0, right(), k.releaseY);
        } else {
            graph_MouseUp(ws, kLeftButton, kShiftMask, right(), k.releaseY);
        }
        EXPECT_FALSE(c.Dragging);
        if (k.wantTop >= 0) {
            EXPECT_EQ(c.ChartTopRecord, k.wantTop);
        } else {
            // The top moves by the records between the two rows; the hour
            // breaks of the new page leave the pressed one within a few
            // minutes of the release.
            EXPECT_EQ(c.ChartTopRecord, k.startTop + pressed - released);
            EXPECT_NEAR(c.RowRecordId[int(k.releaseY)], pressed, 30);
        }
    }
}

TEST_F(InteractionTest, PositionBarJumpsByThePlaceOfTheRelease) {
    job(2000);
    auto& c = ws.chart;
    const int32_t last = c.LastRecord;
    const double h = canvas->Height();
    for (bool flipped : {false, true}) {
        SCOPED_TRACE(flipped);
        ws.settings.Flipped = flipped;
        c.ChartTopRecord = 1234;
        dblClick(right(), firstRow() + 20.0);
        graph_MouseUp(ws, kLeftButton, 0, 100, h / 4);
        EXPECT_EQ(c.ChartTopRecord, int32_t(flipped ? last / 4 : last * 3 / 4));
        EXPECT_EQ(c.SelectStartY, -1);
        EXPECT_GE(canvas->presented, 1);
    }
    // Right of the bar a left release does not jump.
    c.ChartTopRecord = 1234;
    graph_MouseUp(ws, kLeftButton, 0, 300, h / 2);
    EXPECT_EQ(c.ChartTopRecord, 1234);
}

TEST_F(InteractionTest, FloatingBoxesOpenWhereTheChartSaysAndDragWithinTheCanvas) {
    job();
    const auto& c = ws.chart;
    auto& fm = ws.fm_Gas_Chart;
    const double h = canvas->Height();
    const double top = firstRow() + 50.0, band = c.PlotLeft - 100;
    struct Open {
        const char* name;
        std::function<void()> act;
        forms::Control& box;
        double left, top;
    } opens[] = {
        {"selection at the second double click",
         [&] {
             dblClick(right(), top);
             dblClick(right() + 300, lastRow() - 50.0);
         },
         fm.sel_type, right() + 300, lastRow() - 50.0},
        {"geolograph box left of the pointer",
         [&] { graph_MouseUp(ws, kRightButton, 0, band, top); }, fm.Geo_edit, band - 3300, top},
        {"geolograph box 3000 up at the bottom",
         [&] { graph_MouseUp(ws, kRightButton, 0, band, h - 2999); }, fm.Geo_edit, band - 3300,
         h - 5999},
    };
    for (const auto& k : opens) {
        SCOPED_TRACE(k.name);
        graph_KeyPress(ws, kEscape);
        fm.Frame6.setVisible(true);
        k.act();
        EXPECT_TRUE(k.box.visible());
        EXPECT_EQ(k.box.left(), k.left);
        EXPECT_EQ(k.box.top(), k.top);
    }
    // The geolograph box takes the control box's place and marks its row
    // with a level line.
    EXPECT_FALSE(fm.Frame6.visible());
    EXPECT_TRUE(fm.ln_selecter.visible());
    EXPECT_EQ(c.ln_selecter_Y1, c.ln_selecter_Y2);

    // A box dragged from where it was seen, not from off the canvas; the
    // right button drags nothing.
    struct Drag {
        int button;
        double dx, dy, left, top;
    } drags[] = {{kLeftButton, 100, -100, 100, h - 1600}, {kRightButton, 100, -100, -700, h}};
    for (const auto& k : drags) {
        SCOPED_TRACE(k.button);
        fm.sel_type.setSize(2000, 1500);
        fm.sel_type.setPlace(-700, h);
        Box_MouseDown(ws, fm.sel_type, k.button, 300, h - 1420);
        Box_MouseMove(ws, fm.sel_type, k.button, 300 + k.dx, h - 1420 + k.dy);
        EXPECT_EQ(Box_MouseUp(ws, fm.sel_type, k.button, 300 + k.dx, h - 1420 + k.dy),
                  k.button == kLeftButton);
        EXPECT_EQ(fm.sel_type.left(), k.left);
        EXPECT_EQ(fm.sel_type.top(), k.top);
    }
}

TEST_F(InteractionTest, TextBoxesAreKeptOneToARecordInTheJobFile) {
    job();
    auto& c = ws.chart;
    const int y = firstRow() + 200;
    const int32_t id = c.RowRecordId[y];
    // The second box on the record replaces the first; a caret ends the
    // caption drawn.
    const struct {
        QString words;
        double x;
        QString stored, drawn;
    } cases[] = {{"Trip gas", 7000.4, "7000 ^Trip gas", "Trip gas"},
                 {"C1^C2 up", 7500, "7500 ^C1^C2 up", "C1"}};
    for (const auto& k : cases) {
        SCOPED_TRACE(k.words.toStdString());
        ws.fm_Gas_Chart.txt_message.setText(k.words);
        cmd_ins_text_Click(ws);
        const int n = c.PlacingTextBox;
        ASSERT_GT(n, 0);
        // The box follows the pointer until the release drops it.
        graph_MouseMove(ws, 0, 0, k.x - 200, y);
        EXPECT_EQ(c.lbl_insert_txt[n].Left, k.x);
        graph_MouseUp(ws, kLeftButton, 0, k.x, y);
        EXPECT_EQ(c.PlacingTextBox, 0);
        EXPECT_EQ(boxOf(id), n) << "the record's earlier box is still shown";
        EXPECT_EQ(gasText(id), k.stored);
        draw();
        ASSERT_GT(boxOf(id), 0);
        EXPECT_EQ(c.lbl_insert_txt[boxOf(id)].Caption, k.drawn);
    }

    // Dropped on an empty row the box stays in the hand and nothing is
    // written.
    ws.fm_Gas_Chart.txt_message.setText("nowhere");
    cmd_ins_text_Click(ws);
    graph_MouseUp(ws, kLeftButton, 0, 7000, lastRow() + 400.0);
    EXPECT_GT(c.PlacingTextBox, 0);
    testkit::RawDb raw(path, testkit::RawDb::Access::ReadOnly);
    EXPECT_EQ(raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE GAS_TEXT LIKE '%nowhere%'"), 0);
    graph_MouseUp(ws, kLeftButton, 0, 7000, lastRow() - 100.0);
    EXPECT_EQ(c.PlacingTextBox, 0);

    // Chosen, a box takes new words, and the delete empties its field.
    draw();
    const int n = boxOf(id);
    ASSERT_GT(n, 0);
    const auto& box = c.lbl_insert_txt[n];
    EXPECT_EQ(box.Left, 7500);
    EXPECT_EQ(TextBoxAt(ws, box.Left + 10, box.Top + 10), n);
    lbl_insert_txt_Click(ws, n);
    EXPECT_EQ(ws.fm_Gas_Chart.txt_message.text(), "C1");
    ws.fm_Gas_Chart.txt_message.setText("Bottoms up");
    cmd_ins_text_Click(ws);
    EXPECT_EQ(c.PlacingTextBox, 0);
    EXPECT_EQ(gasText(id), "7500 ^Bottoms up");
    lbl_insert_txt_Click(ws, n);
    cmd_del_txt_box_Click(ws);
    EXPECT_EQ(gasText(id), " ");
    EXPECT_FALSE(c.lbl_insert_txt[n].Visible);
    // Nothing chosen: the delete does nothing.
    const QString other = gasText(c.RowRecordId[lastRow() - 100]);
    cmd_del_txt_box_Click(ws);
    EXPECT_EQ(gasText(c.RowRecordId[lastRow() - 100]), other);
}

TEST_F(InteractionTest, ABusyChartIgnoresTheMouseAndTheKeys) {
    job();
    auto& c = ws.chart;
    const double mid = (firstRow() + lastRow()) / 2.0;
    struct Case {
        const char* name;
        std::function<void()> act;
    } cases[] = {
        {"double click", [&] { dblClick(right(), mid); }},
        {"position bar", [&] { graph_MouseUp(ws, kLeftButton, 0, 100, 3000); }},
        {"shift drag",
         [&] {
             graph_MouseDown(ws, kLeftButton, kShiftMask, right(), mid);
             graph_MouseUp(ws, kLeftButton, kShiftMask, right(), mid + 500);
         }},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        c.ChartTopRecord = 500;
        c.Gchart_busy = true;
        k.act();
        c.Gchart_busy = false;
        EXPECT_EQ(c.ChartTopRecord, 500);
        EXPECT_EQ(c.SelectStartY, -1);
        EXPECT_FALSE(ws.fm_Gas_Chart.ln_selecter.visible());
    }
}

} // namespace
} // namespace charttest
