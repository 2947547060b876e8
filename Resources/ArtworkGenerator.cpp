// Draws the bundle's artwork: the stock badge, the sample app icon, the settings rows' icons and
// the result notice's images.
// Usage: pomwick-artwork OUTPUT_FOLDER
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <cstdio>
#include <functional>

namespace {

constexpr int rowIconPixels = 58; // 29 points at 2x
const QColor white(255, 255, 255);

QImage canvas(int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QFont glyphFont(double pixels, bool bold = true) {
    QFont font("DejaVu Sans");
    font.setPixelSize(int(pixels));
    font.setBold(bold);
    return font;
}

// A red count badge: the silhouette the renderer recolors, and the badge shown when switched off.
QImage stockBadge() {
    QImage image = canvas(48);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient fill(0, 0, 0, 48);
    fill.setColorAt(0, QColor(255, 92, 80));
    fill.setColorAt(1, QColor(232, 38, 28));
    p.setBrush(fill);
    p.setPen(Qt::NoPen);
    p.drawEllipse(QRectF(0, 0, 48, 48));
    p.setPen(white);
    p.setFont(glyphFont(30));
    p.drawText(QRectF(0, 0, 48, 48), Qt::AlignCenter, "1");
    return image;
}

QPainterPath roundedSquare(double side, double radiusFraction) {
    QPainterPath path;
    path.addRoundedRect(QRectF(0, 0, side, side), side * radiusFraction, side * radiusFraction);
    return path;
}

// A sample app icon: a parcel on a warm gradient, 60 points at 3x.
QImage sampleIcon() {
    const double side = 180;
    QImage image = canvas(int(side));
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient fill(0, 0, 0, side);
    fill.setColorAt(0, QColor(255, 179, 71));
    fill.setColorAt(1, QColor(230, 96, 40));
    p.fillPath(roundedSquare(side, 0.225), fill);
    // The parcel: a box in two tones with a band across it.
    const QPolygonF top{{90, 38}, {146, 62}, {90, 86}, {34, 62}};
    const QPolygonF left{{34, 62}, {90, 86}, {90, 150}, {34, 124}};
    const QPolygonF right{{146, 62}, {90, 86}, {90, 150}, {146, 124}};
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 248, 235));
    p.drawPolygon(top);
    p.setBrush(QColor(250, 226, 190));
    p.drawPolygon(left);
    p.setBrush(QColor(240, 205, 160));
    p.drawPolygon(right);
    p.setBrush(QColor(200, 80, 30));
    p.drawPolygon(QPolygonF{{62, 50}, {118, 74}, {118, 86}, {62, 62}});
    return image;
}

using Glyph = std::function<void(QPainter&)>;

// A settings row icon: a colored rounded square with a white glyph drawn on a 58-pixel grid.
QImage rowIcon(const QColor& color, const Glyph& glyph) {
    QImage image = canvas(rowIconPixels);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient fill(0, 0, 0, rowIconPixels);
    fill.setColorAt(0, color.lighter(112));
    fill.setColorAt(1, color);
    p.fillPath(roundedSquare(rowIconPixels, 0.23), fill);
    p.setPen(QPen(white, 4.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    glyph(p);
    return image;
}

Glyph text(const QString& glyph, double pixels) {
    return [glyph, pixels](QPainter& p) {
        p.setFont(glyphFont(pixels));
        p.drawText(QRectF(0, 0, rowIconPixels, rowIconPixels), Qt::AlignCenter, glyph);
    };
}

void power(QPainter& p) {
    p.drawArc(QRectF(15, 16, 28, 28), 120 * 16, 300 * 16);
    p.drawLine(QPointF(29, 11), QPointF(29, 28));
}

void eye(QPainter& p) {
    QPainterPath outline;
    outline.moveTo(9, 29);
    outline.quadTo(29, 6, 49, 29);
    outline.quadTo(29, 52, 9, 29);
    p.drawPath(outline);
    p.setBrush(white);
    p.drawEllipse(QPointF(29, 29), 6, 6);
}

void article(QPainter& p) {
    for (int i = 0; i < 4; ++i)
        p.drawLine(QPointF(15, 17 + i * 8), QPointF(i == 3 ? 32 : 43, 17 + i * 8));
}

void palette(QPainter& p) {
    p.setPen(Qt::NoPen);
    const QColor dots[] = {QColor(255, 214, 10), QColor(52, 199, 89), QColor(0, 122, 255),
                           QColor(255, 255, 255)};
    const QPointF centers[] = {{21, 21}, {37, 21}, {21, 37}, {37, 37}};
    for (int i = 0; i < 4; ++i) {
        p.setBrush(dots[i]);
        p.drawEllipse(centers[i], 7, 7);
    }
}

void axis(QPainter& p) {
    p.drawLine(QPointF(29, 10), QPointF(29, 48));
    p.drawLine(QPointF(10, 29), QPointF(48, 29));
    p.drawEllipse(QPointF(29, 29), 9, 9);
}

void border(QPainter& p) {
    p.drawRoundedRect(QRectF(14, 14, 30, 30), 6, 6);
    p.setPen(QPen(white, 2, Qt::DotLine));
    p.drawRoundedRect(QRectF(21, 21, 16, 16), 3, 3);
}

void width(QPainter& p) {
    p.drawLine(QPointF(12, 29), QPointF(46, 29));
    p.drawPolyline(QPolygonF{{19, 22}, {12, 29}, {19, 36}});
    p.drawPolyline(QPolygonF{{39, 22}, {46, 29}, {39, 36}});
    p.drawLine(QPointF(12, 14), QPointF(12, 44));
    p.drawLine(QPointF(46, 14), QPointF(46, 44));
}

void transparency(QPainter& p) {
    p.drawEllipse(QPointF(29, 29), 15, 15);
    QPainterPath half;
    half.moveTo(29, 14);
    half.arcTo(QRectF(14, 14, 30, 30), 90, 180);
    half.closeSubpath();
    p.fillPath(half, white);
}

void restore(QPainter& p) {
    p.drawArc(QRectF(14, 14, 30, 30), 60 * 16, 280 * 16);
    p.drawPolyline(QPolygonF{{34, 10}, {37, 17}, {29, 19}});
}

void mail(QPainter& p) {
    p.drawRoundedRect(QRectF(11, 17, 36, 25), 4, 4);
    p.drawPolyline(QPolygonF{{12, 19}, {29, 32}, {46, 19}});
}

void speech(QPainter& p) {
    QPainterPath bubble;
    bubble.addRoundedRect(QRectF(11, 13, 36, 25), 10, 10);
    bubble.moveTo(19, 37);
    bubble.lineTo(15, 46);
    bubble.lineTo(27, 38);
    p.setBrush(white);
    p.setPen(Qt::NoPen);
    p.drawPath(bubble.simplified());
}

void wrench(QPainter& p) {
    p.setPen(QPen(white, 7, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(20, 38), QPointF(33, 25));
    p.setPen(QPen(white, 4.5, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(QRectF(28, 12, 18, 18), -45 * 16, 270 * 16);
}

// The info button of the text row: a blue circle with a white "i", no square around it.
QImage infoButton() {
    QImage image = canvas(40);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0, 122, 255), 3));
    p.drawEllipse(QRectF(2, 2, 36, 36));
    p.setPen(QColor(0, 122, 255));
    p.setFont(glyphFont(24));
    p.drawText(QRectF(0, 0, 40, 40), Qt::AlignCenter, "i");
    return image;
}

// The result notice's images: a white tick and a white cross, 50 points at 2x, drawn to sit on
// the notice's dark panel.
QImage noticeImage(const std::function<void(QPainter&)>& glyph) {
    QImage image = canvas(100);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(white, 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QRectF(8, 8, 84, 84));
    glyph(p);
    return image;
}

void tick(QPainter& p) {
    p.drawPolyline(QPolygonF{{29, 52}, {44, 66}, {71, 36}});
}

void cross(QPainter& p) {
    p.drawLine(QPointF(35, 35), QPointF(65, 65));
    p.drawLine(QPointF(65, 35), QPointF(35, 65));
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: pomwick-artwork OUTPUT_FOLDER\n");
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));
    QDir().mkpath(out.path());
    const std::pair<const char*, QImage> artwork[] = {
        {"Badge.png", stockBadge()},
        {"Cydia_Icon.png", sampleIcon()},
        {"Info.png", infoButton()},
        {"Enabled.png", rowIcon(QColor(52, 199, 89), power)},
        {"Eye.png", rowIcon(QColor(0, 122, 255), eye)},
        {"Article.png", rowIcon(QColor(255, 149, 0), article)},
        {"Font.png", rowIcon(QColor(175, 82, 222), text("Aa", 24))},
        {"Palete.png", rowIcon(QColor(255, 45, 85), palette)},
        {"Axis.png", rowIcon(QColor(48, 176, 199), axis)},
        {"Border.png", rowIcon(QColor(88, 86, 214), border)},
        {"Width.png", rowIcon(QColor(142, 142, 147), width)},
        {"Transparency.png", rowIcon(QColor(90, 200, 250), transparency)},
        {"Restore.png", rowIcon(QColor(255, 59, 48), restore)},
        {"Mail.png", rowIcon(QColor(0, 122, 255), mail)},
        {"Twitter.png", rowIcon(QColor(29, 161, 242), speech)},
        {"Wrench.png", rowIcon(QColor(99, 99, 102), wrench)},
        {"Money.png", rowIcon(QColor(52, 199, 89), text("$", 32))},
        {"HUD_completed.png", noticeImage(tick)},
        {"HUD_error.png", noticeImage(cross)},
    };
    for (const auto& [name, image] : artwork) {
        if (!image.save(out.filePath(name), "PNG")) {
            std::fprintf(stderr, "pomwick-artwork: cannot write %s\n",
                         qPrintable(out.filePath(name)));
            return 1;
        }
    }
    return 0;
}
