// Draws the pictures of the DesignJet property dialogs and writes them as NAME.png into a folder:
//
//     make-icons FOLDER
//
// Every picture is made of plain shapes (no text, no fonts), so that the files come out the same
// on every machine. The results are committed in dialogs/resources/; run the tool again (target
// `dialog-icons`) after changing a drawing here.

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

const QColor kInk(40, 48, 60);
const QColor kPaper(250, 250, 246);
const QColor kRoll(214, 220, 228);
const QColor kAccent(52, 120, 196);
const QColor kWarm(222, 120, 40);

struct Picture {
    const char* name;
    int width;
    int height;
    std::function<void(QPainter&)> draw;
};

QPen Outline(qreal width = 2.0, const QColor& color = kInk) {
    QPen pen(color, width);
    pen.setJoinStyle(Qt::RoundJoin);
    pen.setCapStyle(Qt::RoundCap);
    return pen;
}

// A roll of paper lying across the picture: a cylinder seen from the front, its sheet hanging
// down from the front edge to `sheetBottom`.
void DrawRoll(QPainter& p, qreal left, qreal top, qreal width, qreal height, qreal sheetBottom) {
    p.setPen(Outline());
    p.setBrush(kPaper);
    p.drawRect(QRectF(left + height / 2, top + height / 2, width - height,
                      sheetBottom - top - height / 2));
    p.setBrush(kRoll);
    p.drawRoundedRect(QRectF(left, top, width, height), height / 2, height / 2);
    p.setBrush(kInk);
    p.drawEllipse(QRectF(left + 2, top + height / 2 - 2, 4, 4));
}

// A sheet with its top right corner folded.
QPainterPath Sheet(qreal left, qreal top, qreal width, qreal height, qreal fold) {
    QPainterPath path;
    path.moveTo(left, top);
    path.lineTo(left + width - fold, top);
    path.lineTo(left + width, top + fold);
    path.lineTo(left + width, top + height);
    path.lineTo(left, top + height);
    path.closeSubpath();
    return path;
}

void DrawSheet(QPainter& p, qreal left, qreal top, qreal width, qreal height) {
    const qreal fold = width / 4;
    p.setPen(Outline());
    p.setBrush(kPaper);
    p.drawPath(Sheet(left, top, width, height, fold));
    p.setBrush(Qt::NoBrush);
    p.drawPolyline(
        QPolygonF({QPointF(left + width - fold, top), QPointF(left + width - fold, top + fold),
                   QPointF(left + width, top + fold)}));
}

// A gauge: a half dial with a needle at `fraction` of its sweep (0 left, 1 right).
void DrawGauge(QPainter& p, qreal fraction, const QColor& needle) {
    const QRectF dial(4, 10, 40, 40);
    p.setPen(Outline(3.0));
    p.setBrush(kRoll);
    p.drawPie(dial, 0, 180 * 16);
    p.setPen(Outline(2.0, kInk));
    for (int tick = 0; tick <= 4; ++tick) {
        const double angle = M_PI - M_PI * tick / 4.0;
        p.drawLine(QPointF(24 + 15 * std::cos(angle), 30 - 15 * std::sin(angle)),
                   QPointF(24 + 19 * std::cos(angle), 30 - 19 * std::sin(angle)));
    }
    const double angle = M_PI - M_PI * fraction;
    p.setPen(Outline(3.0, needle));
    p.drawLine(QPointF(24, 30), QPointF(24 + 14 * std::cos(angle), 30 - 14 * std::sin(angle)));
    p.setPen(Qt::NoPen);
    p.setBrush(kInk);
    p.drawEllipse(QPointF(24, 30), 3, 3);
}

// A plotter seen from the front: a body on two legs with a pen carriage on its beam.
void DrawPlotterGlyph(QPainter& p, const QRectF& box, const QColor& color) {
    const qreal w = box.width(), h = box.height();
    p.setPen(Outline(2.0, color));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(box.left(), box.top() + h * 0.15, w, h * 0.45), 3, 3);
    p.drawLine(QPointF(box.left() + w * 0.15, box.top() + h * 0.6),
               QPointF(box.left() + w * 0.1, box.bottom()));
    p.drawLine(QPointF(box.right() - w * 0.15, box.top() + h * 0.6),
               QPointF(box.right() - w * 0.1, box.bottom()));
    p.setBrush(color);
    p.drawRect(QRectF(box.left() + w * 0.55, box.top() + h * 0.25, w * 0.15, h * 0.25));
}

// A neutral badge: a rounded rectangle holding the plotter glyph.
void DrawBadge(QPainter& p, int width, int height, const QColor& fill) {
    p.setPen(Outline(2.0, fill.darker(140)));
    p.setBrush(fill);
    p.drawRoundedRect(QRectF(2, 2, width - 4, height - 4), 10, 10);
    DrawPlotterGlyph(p, QRectF(width / 2.0 - 20, 8, 40, height - 16), Qt::white);
}

// An arrow turning a quarter circle round the centre of the picture.
void DrawTurningArrow(QPainter& p, const QPointF& centre, qreal radius) {
    p.setPen(Outline(3.0, kAccent));
    p.setBrush(Qt::NoBrush);
    const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    p.drawArc(circle, 20 * 16, 250 * 16);
    const double end = 20.0 * M_PI / 180.0;
    const QPointF tip(centre.x() + radius * std::cos(end), centre.y() - radius * std::sin(end));
    p.setPen(Qt::NoPen);
    p.setBrush(kAccent);
    p.drawPolygon(QPolygonF({tip + QPointF(-6, -3), tip + QPointF(6, -3), tip + QPointF(0, 6)}));
}

std::vector<Picture> Pictures() {
    return {
        {"HPMonoroll", 48, 48, [](QPainter& p) { DrawRoll(p, 4, 6, 40, 14, 42); }},
        {"HPMultiroll", 48, 48,
         [](QPainter& p) {
             DrawRoll(p, 4, 2, 40, 12, 14);
             DrawRoll(p, 4, 16, 40, 12, 28);
             DrawRoll(p, 4, 30, 40, 12, 46);
         }},
        {"HP4000Monoroll", 48, 48,
         [](QPainter& p) {
             p.setPen(Outline());
             p.setBrush(kRoll.darker(115));
             p.drawRoundedRect(QRectF(2, 18, 44, 16), 4, 4);
             p.setBrush(kAccent);
             p.drawRect(QRectF(32, 22, 8, 4));
             DrawRoll(p, 8, 6, 32, 12, 14);
             p.setPen(Outline());
             p.drawLine(QPointF(10, 34), QPointF(8, 46));
             p.drawLine(QPointF(38, 34), QPointF(40, 46));
         }},
        {"HPMedia", 48, 48,
         [](QPainter& p) {
             DrawSheet(p, 12, 8, 28, 36);
             DrawSheet(p, 8, 4, 28, 36);
         }},
        {"HPQualityFast", 48, 48, [](QPainter& p) { DrawGauge(p, 0.15, kWarm); }},
        {"HPQualityNormal", 48, 48, [](QPainter& p) { DrawGauge(p, 0.5, kAccent); }},
        {"HPQualityBest", 48, 48, [](QPainter& p) { DrawGauge(p, 0.85, QColor(40, 150, 70)); }},
        {"HPInkedArea", 48, 48,
         [](QPainter& p) {
             DrawSheet(p, 6, 4, 36, 40);
             QPen dashed = Outline(2.0, kAccent);
             dashed.setDashPattern({2, 2});
             p.setPen(dashed);
             p.setBrush(Qt::NoBrush);
             p.drawRect(QRectF(12, 14, 20, 20));
             p.setPen(Outline(2.0));
             p.drawLine(QPointF(15, 31), QPointF(29, 17));
             p.drawEllipse(QRectF(16, 18, 10, 10));
         }},
        {"HPAutoRotate", 48, 48,
         [](QPainter& p) {
             DrawSheet(p, 16, 12, 16, 22);
             DrawTurningArrow(p, QPointF(24, 24), 19);
         }},
        {"ZKW_HPLogos", 32, 32,
         [](QPainter& p) {
             p.setPen(Outline(2.0, kAccent.darker(130)));
             p.setBrush(kAccent);
             p.drawEllipse(QRectF(2, 2, 28, 28));
             p.setPen(Qt::NoPen);
             p.setBrush(Qt::white);
             p.drawEllipse(QRectF(14, 7, 4, 4));
             p.drawRoundedRect(QRectF(14, 13, 4, 12), 1.5, 1.5);
         }},
        {"HP_logo", 96, 48, [](QPainter& p) { DrawBadge(p, 96, 48, kAccent); }},
        {"ZKW_logo", 96, 48, [](QPainter& p) { DrawBadge(p, 96, 48, QColor(96, 104, 116)); }},
        {"OptionsTab", 24, 24,
         [](QPainter& p) {
             p.scale(0.5, 0.5);
             DrawRoll(p, 4, 6, 40, 14, 42);
         }},
        {"AdvancedTab", 24, 24,
         [](QPainter& p) {
             // Three sliders.
             for (int row = 0; row < 3; ++row) {
                 const qreal y = 5 + row * 7;
                 p.setPen(Outline(2.0));
                 p.drawLine(QPointF(3, y), QPointF(21, y));
                 p.setPen(Outline(1.5));
                 p.setBrush(row == 1 ? kAccent : kRoll);
                 p.drawEllipse(QPointF(row == 0 ? 15 : row == 1 ? 8 : 17, y), 3, 3);
             }
         }},
    };
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-icons FOLDER\n");
        return 2;
    }
    const std::string folder = argv[1];
    int failures = 0;
    for (const Picture& picture : Pictures()) {
        QImage image(picture.width, picture.height, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        {
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            picture.draw(painter);
        }
        const std::string path = folder + "/" + picture.name + ".png";
        if (image.save(QString::fromStdString(path), "PNG")) {
            std::printf("%s\n", path.c_str());
        } else {
            std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
            ++failures;
        }
    }
    return failures == 0 ? 0 : 1;
}
