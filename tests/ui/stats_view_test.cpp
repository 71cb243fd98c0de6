// The Statistics tab after a report of the demonstration job: the button
// starts it, the report shows whole lines in a fixed-pitch box with its end
// in view, and a picture is saved beside the build for a look.
#include "station.h"
#include "stats/statistics.h"
#include "ui/setup_view.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBlock>
#include <gtest/gtest.h>

using uitest::Station;

TEST(StatsView, TheStatisticsTabShowsTheFinishedReportWithItsEndInView) {
    Station st;
    ASSERT_TRUE(st.loaded);
    const QString job = st.folder.file("DB_CUE/STATS_DEMO.DB");
    ASSERT_TRUE(QFile::copy(QStringLiteral(GASCHART_BINARY_DIR "/DB_CUE/V11_DEMO.DB"), job));
    st.ws.fm_Gas_Chart.txt_db_path.setText(job);

    auto* setup = static_cast<ui::SetupView*>(st.window("fm_setup"));
    setup->panel().form.setVisible(true);
    setup->resize(setup->preferredSize({1366, 768}));
    QTabWidget* tabs = setup->tabs();
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->tabText(i) == "Statistics") tabs->setCurrentIndex(i);
    // The button, then the tick that starts the report.
    auto* button = st.widgetOf<QPushButton>("fm_setup", "cmd_calculate_stats");
    ASSERT_NE(button, nullptr);
    button->click();
    stats::tmr_calc_stats_Timer(st.ws);
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();

    auto* box = st.widgetOf<QPlainTextEdit>("fm_setup", "txt_stats_output");
    ASSERT_NE(box, nullptr);
    const QStringList lines = box->toPlainText().split('\n');
    ASSERT_GT(lines.size(), 40);
    EXPECT_TRUE(lines.contains("Ombri Instruments general Stats report and tally generator"));
    EXPECT_TRUE(QFontInfo(box->font()).fixedPitch());
    // A whole tally line is in view without scrolling sideways.
    int widest = 0;
    for (const QString& l : lines)
        widest = std::max(widest, box->fontMetrics().horizontalAdvance(l));
    EXPECT_LE(widest, box->viewport()->width());
    // The end of the report fills the box: its last tally line near the
    // bottom, earlier lines above it.
    const QTextBlock top = box->cursorForPosition({4, 4}).block();
    const QTextBlock bottom = box->cursorForPosition({4, box->viewport()->height() - 4}).block();
    EXPECT_GT(bottom.blockNumber() - top.blockNumber(), 10);
    EXPECT_GE(bottom.blockNumber(), box->document()->blockCount() - 3);
    // The status lines end with the run's last.
    auto* status = st.widgetOf<QPlainTextEdit>("fm_setup", "txt_stats");
    ASSERT_NE(status, nullptr);
    EXPECT_TRUE(status->toPlainText().endsWith("-- Job Done"));

    QDir().mkpath(QStringLiteral(GASCHART_BINARY_DIR "/ui-shots"));
    EXPECT_TRUE(setup->grab().save(
        QStringLiteral(GASCHART_BINARY_DIR "/ui-shots/fm_setup_stats_report.png")));
}
