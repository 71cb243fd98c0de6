#include "ui/chro_view.h"

#include "chromatograph/chromatograph.h"
#include "forms/fm_chro.h"
#include "ui/binder.h"
#include "ui/handlers.h"
#include "workstation/image_canvas.h"
#include "workstation/workstation.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace ui {

namespace {

// Pixels of the picture to the inch: the whole run and its report at a
// size that reads well on a 1366 by 768 screen.
constexpr double kPixelsPerInch = 112;

// The picture box: shows the presented picture, and passes the pointer on
// as twips.
class Picture : public QWidget {
  public:
    Picture(Workstation& ws, QWidget* parent) : QWidget(parent), ws_(ws) {
        setObjectName("pb_chro");
        setAttribute(Qt::WA_OpaquePaintEvent);
        setMouseTracking(true);
        setFixedSize(static_cast<int>(chromatograph::kPictureWidth / 1440 * kPixelsPerInch),
                     static_cast<int>(chromatograph::kPictureHeight / 1440 * kPixelsPerInch));
    }
    void setImage(const QImage& image) {
        image_ = image;
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        if (image_.isNull())
            p.fillRect(rect(), Qt::white);
        else
            p.drawImage(rect(), image_);
    }
    void mouseMoveEvent(QMouseEvent* e) override {
        const QPointF t = twips(e->position());
        chromatograph::pb_chro_MouseMove(ws_, t.x(), t.y(), e->buttons() & Qt::LeftButton);
    }
    void mousePressEvent(QMouseEvent* e) override { mouseMoveEvent(e); }
    void mouseDoubleClickEvent(QMouseEvent* e) override {
        if (e->button() == Qt::LeftButton) chromatograph::pb_chro_DblClick(ws_);
    }

  private:
    QPointF twips(QPointF px) const {
        return {px.x() / width() * chromatograph::kPictureWidth,
                px.y() / height() * chromatograph::kPictureHeight};
    }
    Workstation& ws_;
    QImage image_;
};

QPushButton* Button(Workstation& ws, forms::FmChro& fm, forms::Control& c) {
    auto* b = new QPushButton;
    bind(b, c, eventsFor(ws, fm, c));
    return b;
}

QLabel* Label(Workstation& ws, forms::FmChro& fm, forms::Control& c) {
    auto* l = new QLabel;
    bind(l, c, eventsFor(ws, fm, c));
    return l;
}

QSlider* Slider(Workstation& ws, forms::FmChro& fm, forms::Control& c) {
    auto* s = new QSlider(Qt::Vertical);
    // Up is more, as the gas is.
    s->setInvertedAppearance(false);
    bind(s, c, eventsFor(ws, fm, c));
    return s;
}

} // namespace

ChroView::ChroView(Workstation& ws, QWidget* owner) : PanelWindow(ws.fm_chro, owner) {
    auto& fm = ws.fm_chro;
    auto* row = new QHBoxLayout(this);
    auto* picture = new Picture(ws, this);
    bind(picture, fm.pb_chro);
    row->addWidget(picture, 0, Qt::AlignTop);

    auto* side = new QVBoxLayout;
    row->addLayout(side);
    auto* peaks = new QGridLayout;
    for (int g = 0; g < 7; ++g) peaks->addWidget(Button(ws, fm, fm.cmd_set[g]), g / 2, g % 2);
    side->addLayout(peaks);
    QLabel* prompt = Label(ws, fm, fm.lbl_dbl_clk);
    prompt->setWordWrap(true);
    side->addWidget(prompt);
    QLabel* seconds = Label(ws, fm, fm.lbl_cg_time);
    seconds->setAlignment(Qt::AlignCenter);
    side->addWidget(seconds);
    side->addWidget(Button(ws, fm, fm.cmd_timing_lines));

    auto* split = new QGroupBox;
    auto* sliders = new QGridLayout(split);
    static const char* const gases[7] = {"C1", "C2", "C3", "IC4", "NC4", "IC5", "NC5"};
    for (int g = 0; g < 7; ++g) {
        sliders->addWidget(Slider(ws, fm, fm.VS_c[g]), 0, g, Qt::AlignHCenter);
        auto* name = new QLabel(gases[g]);
        name->setAlignment(Qt::AlignCenter);
        sliders->addWidget(name, 1, g);
    }
    QSlider* size = Slider(ws, fm, fm.vs_cg_vis_size);
    // The top of the size slider is the biggest trace.
    size->setInvertedAppearance(true);
    sliders->addWidget(size, 0, 7, Qt::AlignHCenter);
    sliders->addWidget(Label(ws, fm, fm.lbl_size), 1, 7, Qt::AlignHCenter);
    sliders->addWidget(Label(ws, fm, fm.lbl_adjust), 2, 0, 1, 8, Qt::AlignHCenter);
    side->addWidget(split, 1);
    side->addWidget(Button(ws, fm, fm.cmd_Commit));
    auto* steps = new QHBoxLayout;
    steps->addWidget(Button(ws, fm, fm.cmd_get_previous_cg));
    steps->addWidget(Button(ws, fm, fm.cmd_get_next_cg));
    steps->addWidget(Button(ws, fm, fm.cmd_print_chro));
    side->addLayout(steps);

    // The picture box's canvas, at the widget's own pixels.
    auto image = std::make_shared<station::ImageCanvas>(picture->width(), picture->height(),
                                                        chromatograph::kPictureWidth);
    QPointer<Picture> view(picture);
    image->shown = [view](const QImage& shown) {
        if (view) view->setImage(shown);
    };
    ws.chro.pb_chro = image;
    chromatograph::fm_chro_Load(ws);
}

} // namespace ui
