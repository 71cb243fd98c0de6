// The chromatograph panel over a run of the demonstration job: opened from
// the chart's stretch, the picture shows the run drawn by the panel's own
// canvas, the sliders follow the split, and pictures at both screen sizes
// are saved beside the build for a look.
#include "chromatograph/chromatograph.h"
#include "station.h"
#include "store/lifecycle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QSlider>
#include <gtest/gtest.h>

using uitest::Station;

TEST(ChroView, ShowsARunOfTheDemonstrationJob) {
    Station st;
    ASSERT_TRUE(st.loaded);
    const QString job = st.folder.file("DB_CUE/CHRO_DEMO.DB");
    ASSERT_TRUE(QFile::copy(QStringLiteral(GASCHART_BINARY_DIR "/DB_CUE/V11_DEMO.DB"), job));
    st.ws.fm_Gas_Chart.txt_db_path.setText(job);
    store::PrimeLastRecord(st.ws);
    ASSERT_GT(st.ws.db.Grecords.RecordCount(), 2000);
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
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(view->isVisible());
    auto* commit = st.widgetOf<QPushButton>("fm_chro", "cmd_Commit");
    ASSERT_NE(commit, nullptr);
    EXPECT_EQ(commit->text(), "COMMIT CHANGE");
    auto* c1 = st.widgetOf<QSlider>("fm_chro", "VS_c_0");
    ASSERT_NE(c1, nullptr);
    EXPECT_EQ(c1->value(), st.ws.fm_chro.VS_c[0].value());
    EXPECT_GT(c1->value(), 0);
    // Moving a slider on screen goes through the handler: the split is new.
    const double before = st.ws.chro.run.CgPct[0];
    c1->setValue(c1->value() / 2);
    EXPECT_LT(st.ws.chro.run.CgPct[0], before);
    EXPECT_TRUE(st.ws.chro.CgRedrawPending);

    QCoreApplication::processEvents();
    QWidget* picture = view->findChild<QWidget*>("pb_chro");
    ASSERT_NE(picture, nullptr);
    const QImage shown = picture->grab().toImage();
    int ink = 0;
    for (int x = 0; x < shown.width(); x += 2)
        for (int y = 0; y < shown.height(); y += 2) ink += qGray(shown.pixel(x, y)) < 100;
    EXPECT_GT(ink, 500) << "the trace and the report are drawn";

    QDir().mkpath(QStringLiteral(GASCHART_BINARY_DIR "/ui-shots"));
    for (QSize room : {QSize(1366, 768), QSize(1920, 1080)}) {
        view->resize(view->preferredSize(room));
        QCoreApplication::processEvents();
        EXPECT_LE(view->width(), room.width());
        EXPECT_LE(view->height(), room.height() - 40);
        EXPECT_TRUE(view->grab().save(
            QStringLiteral(GASCHART_BINARY_DIR "/ui-shots/fm_chro_%1.png").arg(room.width())));
    }
}
