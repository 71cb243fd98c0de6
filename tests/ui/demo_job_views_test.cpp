// The views over the demonstration job: the chart widget, the chromatograph
// panel and the Statistics tab.
#include "chart/chart.h"
#include "chromatograph/chromatograph.h"
#include "operator.h"
#include "station.h"
#include "stats/statistics.h"
#include "store/lifecycle.h"
#include "ui/chart_canvas.h"
#include "ui/floating_box.h"
#include "ui/setup_view.h"

#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// A started station switched over to a copy of the demonstration job.
struct DemoStation : uitest::Station {
    DemoStation() {
        job = folder.file("DB_CUE/DEMO.DB");
        EXPECT_TRUE(QFile::copy(QStringLiteral(GASCHART_BINARY_DIR "/DB_CUE/V11_DEMO.DB"), job));
        ws.fm_Gas_Chart.txt_db_path.setText(job);
    }
};

} // namespace

TEST(DemoJobViews, TheChartWidgetHandsMouseAndKeysToTheChartInTwipsAndTheBoxIsDragged) {
    DemoStation st;
    ASSERT_TRUE(st.loaded);
    st.desktop.showMain();
    auto* view = st.main()->canvas();
    auto& model = st.ws.fm_Gas_Chart.Frame6;
    model.setVisible(true);
    // The box follows a drag of its title strip, held at a point of the
    // canvas and let go at another.
    view->resize(1200, 720);
    auto* box = view->findChild<ui::FloatingBox*>("Frame6");
    ASSERT_NE(box, nullptr);
    ASSERT_LT(box->height() + 40, view->height());
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
    // Past the corner the box stops at the canvas's edge, to the pixel.
    drag({5000, 5000});
    EXPECT_NEAR(box->x() + box->width(), view->width(), 1);
    EXPECT_NEAR(box->y() + box->height(), view->height(), 1);
    // A click on the box is not a click on the chart: the box stays.
    uitest::release(box, Qt::LeftButton, {5, box->height() - 5});
    EXPECT_TRUE(model.visible());

    // The first draw waits for the first press of Reset View.
    chart::cmd_reset_view_Click(st.ws);
    chart::cmd_reset_view_Click(st.ws);
    auto& c = st.ws.chart;
    ASSERT_GT(c.RowsDrawn, 0) << st.messages().join(" | ").toStdString();
    const double top = c.ChartTop + 100, bottom = c.ChartBottom - 100;
    ASSERT_NE(c.RowRecordId[int(top)], 0);
    ASSERT_NE(c.RowRecordId[int(bottom)], 0);

    // The picture keeps its pixel size while the widget takes another.
    view->resize(1500, 350);
    const double xScale = view->width() / c.graph->Width();
    const double yScale = view->height() / c.graph->Height();
    const QPointF first(c.PlotLeft + 1500, top), second(c.PlotLeft + 2500, bottom);
    uitest::doubleClick(view, Qt::LeftButton,
                        QPoint(int(first.x() * xScale), int(first.y() * yScale)));
    uitest::doubleClick(view, Qt::LeftButton,
                        QPoint(int(second.x() * xScale), int(second.y() * yScale)));
    // A pixel of the widget is this many twips.
    EXPECT_NEAR(c.SelectStartX, first.x(), 1.0 / xScale + 1);
    EXPECT_NEAR(c.SelectStartY, first.y(), 1.0 / yScale + 1);
    EXPECT_NEAR(c.SelectEndY, second.y(), 1.0 / yScale + 1);
    // Delete asks about the stretch the widget chose; Escape lets it go.
    st.widgetOf<QPushButton>("fm_Gas_Chart", "cmd_del_from_db")->click();
    ASSERT_FALSE(st.dialogs.boxes.empty());
    EXPECT_EQ(st.dialogs.boxes.back().title, "ARE YOU SURE YOU WANT TO DELETE?");
    uitest::key(view, Qt::Key_Escape);
    EXPECT_EQ(c.SelectStartY, -1);

    // The cursor over the position bar is the up and down arrow.
    QMouseEvent move(QEvent::MouseMove, QPointF(3, 100), view->mapToGlobal(QPointF(3, 100)),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view, &move);
    EXPECT_EQ(view->cursor().shape(), Qt::SizeVerCursor);
    // A left release on the plot hides the control box, a right one shows it.
    uitest::release(view, Qt::LeftButton, {700, 300});
    EXPECT_FALSE(model.visible());
    uitest::release(view, Qt::RightButton, {700, 300});
    EXPECT_TRUE(model.visible());
}

TEST(DemoJobViews, TheChromatographPanelShowsARunAndTheStatisticsTabTheReportInColumns) {
    DemoStation st;
    ASSERT_TRUE(st.loaded);
    store::PrimeLastRecord(st.ws);
    // A stretch about a thousand records back from the newest.
    const int32_t newest = st.ws.db.Grecords.RecordCount();
    st.ws.chart.RowRecordId[3000] = newest - 1000;
    st.ws.chart.RowRecordId[3100] = newest - 990;
    st.ws.chart.SelectStartY = 3000;
    st.ws.chart.SelectEndY = 3100;
    st.ws.chart.Gchart_busy = false;
    chromatograph::cmd_view_cg_Click(st.ws);
    ASSERT_GT(st.ws.chro.run.CgCount, 15) << st.lastMessage().toStdString();

    auto* view = st.window("fm_chro");
    auto* c1 = st.widgetOf<QSlider>("fm_chro", "VS_c_0");
    ASSERT_NE(c1, nullptr);
    EXPECT_EQ(c1->value(), st.ws.fm_chro.VS_c[0].value());
    // Moving a slider on screen goes through the handler: the split is new.
    const double before = st.ws.chro.run.CgPct[0];
    c1->setValue(c1->value() / 2);
    EXPECT_LT(st.ws.chro.run.CgPct[0], before);

    QCoreApplication::processEvents();
    const QImage shown = view->findChild<QWidget*>("pb_chro")->grab().toImage();
    int ink = 0;
    for (int x = 0; x < shown.width(); x += 2)
        for (int y = 0; y < shown.height(); y += 2) ink += qGray(shown.pixel(x, y)) < 100;
    EXPECT_GT(ink, 500) << "the trace and the report are drawn";
    // It fits the smaller of the unit's screens.
    view->resize(view->preferredSize({1366, 768}));
    EXPECT_LE(view->height(), 768 - 40);

    // The Statistics tab: the button, then the tick that starts the report.
    auto* setup = static_cast<ui::SetupView*>(st.window("fm_setup"));
    setup->panel().form.setVisible(true);
    setup->resize(setup->preferredSize({1366, 768}));
    QTabWidget* tabs = setup->tabs();
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->tabText(i) == "Statistics") tabs->setCurrentIndex(i);
    st.widgetOf<QPushButton>("fm_setup", "cmd_calculate_stats")->click();
    stats::tmr_calc_stats_Timer(st.ws);
    uitest::settle();

    auto* box = st.widgetOf<QPlainTextEdit>("fm_setup", "txt_stats_output");
    const QStringList lines = box->toPlainText().split('\n');
    ASSERT_GT(lines.size(), 40);
    EXPECT_TRUE(QFontInfo(box->font()).fixedPitch());
    // A whole tally line is in view without scrolling sideways.
    int widest = 0;
    for (const QString& l : lines)
        widest = std::max(widest, box->fontMetrics().horizontalAdvance(l));
    EXPECT_LE(widest, box->viewport()->width());
}
