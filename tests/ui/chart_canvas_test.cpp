// The chart widget hands the mouse and the keys to the chart in twips of its
// canvas, whatever the widget's size in pixels.
#include "acquisition/startup.h"
#include "chart/chart.h"
#include "operator.h"
#include "raw_db.h"
#include "test_station.h"
#include "ui/chart_canvas.h"
#include "ui/desktop.h"
#include "ui/floating_box.h"
#include "ui/main_view.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
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
    // The first and last canvas rows that hold a record.
    std::pair<int, int> drawnRows() const {
        int top = -1, bottom = -1;
        for (int y = 0; y < chart::kRowSlots; ++y)
            if (ws.chart.RowRecordId[y] != 0) {
                if (top < 0) top = y;
                bottom = y;
            }
        return {top, bottom};
    }
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

TEST(ChartCanvas, TwoDoubleClicksOnTheWidgetChooseRowsAtAnyWidgetSizeForTheDelete) {
    ChartStation st;
    ASSERT_TRUE(st.loaded);
    st.desktop.showMain();
    auto* view = st.canvas();
    auto& c = st.ws.chart;
    ASSERT_GT(c.RowsDrawn, 0) << st.messages().join(" | ").toStdString();
    const double heightTwips = c.graph->Height();
    const double widthTwips = c.graph->Width();
    const auto [top, bottom] = st.drawnRows();
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

        // Escape on the widget clears the last size's selection.
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
    // A right release on the plot shows the control box again.
    uitest::release(view, Qt::LeftButton, {700, 300});
    EXPECT_FALSE(st.ws.fm_Gas_Chart.Frame6.visible());
    uitest::release(view, Qt::RightButton, {700, 300});
    EXPECT_TRUE(st.ws.fm_Gas_Chart.Frame6.visible());

    // The stretch the widget chose is the one Delete and Yes take out of the
    // file.
    const int32_t newer = c.RowRecordId[c.SelectStartY];
    const int32_t older = c.RowRecordId[c.SelectEndY];
    st.dialogs.answers.push_back(platform::Answer::Yes);
    auto* del = st.desktop.main()->findChild<QPushButton*>("cmd_del_from_db");
    ASSERT_NE(del, nullptr);
    del->click();
    testkit::RawDb raw(st.job, testkit::RawDb::Access::ReadOnly);
    EXPECT_EQ(raw.number(QString("SELECT count(*) FROM OMBRI_DB_010 WHERE ID BETWEEN %1 AND %2")
                             .arg(older)
                             .arg(newer)),
              0);
    EXPECT_GT(raw.rows(), 0);
}

TEST(ChartCanvas, ABoxFollowsADragOfItsTitleStripAndStaysOnTheCanvas) {
    ChartStation st;
    ASSERT_TRUE(st.loaded);
    st.desktop.showMain();
    auto* view = st.canvas();
    view->resize(1200, 720);
    auto& model = st.ws.fm_Gas_Chart.Frame6;
    model.setVisible(true);
    auto* box = view->findChild<ui::FloatingBox*>("Frame6");
    ASSERT_NE(box, nullptr);
    ASSERT_LT(box->height() + 40, view->height());

    // The strip is held at a point of the canvas and let go at another.
    auto drag = [&](QPoint travel) {
        QLabel* strip = box->titleStrip();
        const QPoint from = strip->mapTo(view, QPoint(20, 4));
        QTest::mousePress(strip, Qt::LeftButton, {}, strip->mapFrom(view, from));
        QTest::mouseMove(strip, strip->mapFrom(view, from + travel));
        QTest::mouseRelease(strip, Qt::LeftButton, {}, strip->mapFrom(view, from + travel));
    };
    const QPoint start = box->pos();
    const QPointF twips(model.left(), model.top());
    drag({70, 25});
    EXPECT_NEAR(box->x(), start.x() + 70, 1);
    EXPECT_NEAR(box->y(), start.y() + 25, 1);
    const QPointF travel = view->toTwips({70, 25});
    EXPECT_NEAR(model.left(), twips.x() + travel.x(), travel.x() / 70 + 1);
    EXPECT_NEAR(model.top(), twips.y() + travel.y(), travel.y() / 25 + 1);
    // Past the corners the box stops at the canvas's edges.
    drag({-3000, -3000});
    EXPECT_EQ(box->pos(), QPoint(0, 0));
    EXPECT_EQ(model.left(), 0);
    drag({5000, 5000});
    EXPECT_NEAR(box->x() + box->width(), view->width(), 1);
    EXPECT_NEAR(box->y() + box->height(), view->height(), 1);
    // A click on the box is not a click on the chart: the box stays.
    uitest::release(box, Qt::LeftButton, {5, box->height() - 5});
    EXPECT_TRUE(model.visible());
}

} // namespace
