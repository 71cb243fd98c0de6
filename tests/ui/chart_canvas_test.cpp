// The chart widget hands the mouse to the chart in twips of its canvas,
// whatever the widget's size in pixels.
#include "acquisition/startup.h"
#include "chart/chart.h"
#include "operator.h"
#include "raw_db.h"
#include "test_station.h"
#include "ui/chart_canvas.h"
#include "ui/desktop.h"
#include "ui/main_view.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

// A job of 900 records, six seconds apart from 06:00, opened and drawn as
// the program starts.
struct ChartStation : testkit::Station {
    ui::Desktop desktop;
    bool loaded = false;

    ChartStation() : testkit::Station("V11_DEMO.DB") {
        testkit::RawDb raw(job);
        raw.exec(
            "WITH RECURSIVE k(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM k WHERE n < 900) "
            "INSERT INTO OMBRI_DB_010 (ID, PACKET_NUM, SERIAL_NUM, DATE_TXT, TIME_TXT, DT, "
            "DEPTH, DEPTH_RAW, GAS_UNITS, ERR_TXT, C1, C2, C3, IC4, NC4, CGTESTNUM, TOTAL_SPM, "
            "BIT_DEPTH, H2S, O2, CO2, EXT_AMPS, VOLTS, CHROM_VAC, TEMP, SAMPLEVAC, LPH, CGV) "
            "SELECT n, n, 'KW1042', '11/02/2026', "
            "strftime('%H:%M:%S', '2026-11-02 06:00:00', '+' || (n * 6) || ' seconds'), "
            "datetime('2026-11-02 06:00:00', '+' || (n * 6) || ' seconds'), "
            "1000 + n / 10, 1000 + n / 10, 10 + n % 7, '0', 1, 0, 0, 0, 0, 1, 100, 1000, 0, 20.9, "
            "0.5, 1, 13.5, 500, 40, 50, 60, 0 FROM k");
        desktop.attach(ws);
        loaded = acq::Form_Load(ws);
        // The first draw waits for the first press of Reset View.
        chart::cmd_reset_view_Click(ws);
        chart::cmd_reset_view_Click(ws);
    }
    ui::ChartCanvas* canvas() const { return desktop.main()->canvas(); }
};

void doubleClick(QWidget* w, QPoint at) {
    QMouseEvent down(QEvent::MouseButtonPress, at, w->mapToGlobal(at), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, at, w->mapToGlobal(at), Qt::LeftButton, Qt::NoButton,
                   Qt::NoModifier);
    QApplication::sendEvent(w, &up);
    QMouseEvent twice(QEvent::MouseButtonDblClick, at, w->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &twice);
    QApplication::sendEvent(w, &up);
}

TEST(ChartCanvas, TwoDoubleClicksOnTheWidgetChooseRowsAtAnyWidgetSize) {
    ChartStation st;
    ASSERT_TRUE(st.loaded);
    st.desktop.showMain();
    auto* view = st.canvas();
    auto& c = st.ws.chart;
    ASSERT_GT(c.RowsDrawn, 0) << st.messages().join(" | ").toStdString();
    const double heightTwips = c.graph->Height();
    const double widthTwips = c.graph->Width();
    // The rows that hold a record.
    int top = -1, bottom = -1;
    for (int y = 0; y < chart::kRowSlots; ++y)
        if (c.RowRecordId[y] != 0) {
            if (top < 0) top = y;
            bottom = y;
        }
    ASSERT_GT(bottom - top, 600);

    // The picture keeps its pixel size while the widget takes others: the
    // chart's own image stands at 1000 x 700 until the next draw.
    for (const QSize size : {QSize(1000, 700), QSize(500, 700), QSize(1500, 350)}) {
        SCOPED_TRACE(testing::Message() << size.width() << "x" << size.height());
        view->resize(size);
        const double xScale = size.width() / widthTwips;
        const double yScale = size.height() / heightTwips;
        const QPointF first(c.PlotLeft + 1500, top + 100.0);
        const QPointF second(c.PlotLeft + 2500, bottom - 100.0);
        const QPoint p1(int(first.x() * xScale), int(first.y() * yScale));
        const QPoint p2(int(second.x() * xScale), int(second.y() * yScale));
        // A pixel of the widget is this many twips.
        const double slack = 1.0 / yScale + 1;

        uitest::key(view, Qt::Key_Escape);
        EXPECT_EQ(c.SelectStartY, -1);
        doubleClick(view, p1);
        EXPECT_NEAR(c.SelectStartY, first.y(), slack);
        EXPECT_NEAR(c.SelectStartX, first.x(), 1.0 / xScale + 1);
        EXPECT_TRUE(st.ws.fm_Gas_Chart.ln_selecter.visible());
        EXPECT_FALSE(st.ws.fm_Gas_Chart.sel_type.visible());
        doubleClick(view, p2);
        EXPECT_NEAR(c.SelectEndY, second.y(), slack);
        EXPECT_TRUE(st.ws.fm_Gas_Chart.sel_type.visible());
        EXPECT_GT(c.RowRecordId[c.SelectStartY], c.RowRecordId[c.SelectEndY]);
    }

    // The cursor over the position bar is the up and down arrow.
    QMouseEvent move(QEvent::MouseMove, QPointF(3, 100), view->mapToGlobal(QPointF(3, 100)),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view, &move);
    EXPECT_EQ(view->cursor().shape(), Qt::SizeVerCursor);
    // Escape on the widget clears the selection.
    uitest::key(view, Qt::Key_Escape);
    EXPECT_EQ(c.SelectStartY, -1);
    EXPECT_FALSE(st.ws.fm_Gas_Chart.sel_type.visible());
    // A right release on the plot shows the control box again.
    uitest::release(view, Qt::LeftButton, {700, 300});
    EXPECT_FALSE(st.ws.fm_Gas_Chart.Frame6.visible());
    uitest::release(view, Qt::RightButton, {700, 300});
    EXPECT_TRUE(st.ws.fm_Gas_Chart.Frame6.visible());

    // A text box from the button, dropped by a release on the chart, goes
    // into the record under it.
    view->resize(1000, 700);
    st.ws.fm_Gas_Chart.txt_message.setText("Trip gas");
    auto* insert = st.desktop.main()->findChild<QPushButton*>("cmd_ins_text");
    ASSERT_NE(insert, nullptr);
    insert->click();
    const double yScale = 700 / heightTwips;
    const QPoint drop(int((c.PlotLeft + 1200) * 1000 / widthTwips), int((top + 300) * yScale));
    const int32_t id = c.RowRecordId[int(drop.y() / yScale)];
    uitest::release(view, Qt::LeftButton, drop);
    testkit::RawDb raw(st.job, testkit::RawDb::Access::ReadOnly);
    // One record holds the words: the one under the drop (to a pixel).
    EXPECT_EQ(raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE GAS_TEXT LIKE '% ^Trip gas'"), 1);
    EXPECT_NEAR(raw.number("SELECT ID FROM OMBRI_DB_010 WHERE GAS_TEXT LIKE '% ^Trip gas'"), id, 1);
    doubleClick(view,
                QPoint(int((c.PlotLeft + 1500) * 1000 / widthTwips), int((top + 100) * yScale)));
    const QPoint far(int((c.PlotLeft + 3000) * 1000 / widthTwips), int((bottom - 100) * yScale));
    QMouseEvent toFar(QEvent::MouseMove, far, view->mapToGlobal(far), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(view, &toFar);
    EXPECT_TRUE(c.lbl_float.Visible);
    if (qEnvironmentVariableIsSet("GASCHART_SHOT"))
        st.desktop.main()->grab().save(qEnvironmentVariable("GASCHART_SHOT"));
}

TEST(ChartCanvas, TwoDoubleClicksThenDeleteAndYesTakeTheStretchOutOfTheFile) {
    ChartStation st;
    ASSERT_TRUE(st.loaded);
    st.desktop.showMain();
    auto* view = st.canvas();
    view->resize(1000, 700);
    auto& c = st.ws.chart;
    int top = -1, bottom = -1;
    for (int y = 0; y < chart::kRowSlots; ++y)
        if (c.RowRecordId[y] != 0) {
            if (top < 0) top = y;
            bottom = y;
        }
    ASSERT_GT(bottom - top, 600);
    const double xScale = 1000 / c.graph->Width(), yScale = 700 / c.graph->Height();
    const auto at = [&](double x, double y) { return QPoint(int(x * xScale), int(y * yScale)); };
    doubleClick(view, at(c.PlotLeft + 1500, top + 200));
    doubleClick(view, at(c.PlotLeft + 1500, top + 500));
    ASSERT_TRUE(st.ws.fm_Gas_Chart.sel_type.visible());
    const int32_t newer = c.RowRecordId[c.SelectStartY];
    const int32_t older = c.RowRecordId[c.SelectEndY];
    ASSERT_GT(newer, older);

    st.dialogs.answers.push_back(platform::Answer::Yes);
    auto* del = st.desktop.main()->findChild<QPushButton*>("cmd_del_from_db");
    ASSERT_NE(del, nullptr);
    del->click();

    testkit::RawDb raw(st.job, testkit::RawDb::Access::ReadOnly);
    const QString between = QString("SELECT count(*) FROM OMBRI_DB_010 WHERE ID BETWEEN %1 AND %2")
                                .arg(older)
                                .arg(newer);
    EXPECT_EQ(raw.number(between), 0);
    // The rest of the job stays.
    EXPECT_GT(raw.rows(), 900 - (newer - older + 1) - 3);
    EXPECT_EQ(
        raw.number("SELECT count(*) FROM OMBRI_DB_010 WHERE ID < " + QString::number(older - 1)),
        older - 2);
}

} // namespace
