#include "platform/twips.h"

#include <QWidget>
#include <cmath>

namespace numarel {
namespace {
constexpr double kTwipsPerInch = 1440.0;

int ToPixels(int twips, double dpi) {
    return static_cast<int>(std::lround(twips * dpi / kTwipsPerInch));
}
int ToTwips(int pixels, double dpi) {
    return dpi > 0 ? static_cast<int>(std::lround(pixels * kTwipsPerInch / dpi)) : 0;
}
}  // namespace

int TwipsToPixelsX(const QWidget* widget, int twips) {
    return ToPixels(twips, widget->logicalDpiX());
}
int TwipsToPixelsY(const QWidget* widget, int twips) {
    return ToPixels(twips, widget->logicalDpiY());
}
int PixelsToTwipsX(const QWidget* widget, int pixels) {
    return ToTwips(pixels, widget->logicalDpiX());
}
int PixelsToTwipsY(const QWidget* widget, int pixels) {
    return ToTwips(pixels, widget->logicalDpiY());
}

QRect TwipsRect(const QWidget* widget, int left, int top, int width, int height) {
    return QRect(TwipsToPixelsX(widget, left), TwipsToPixelsY(widget, top),
                 TwipsToPixelsX(widget, width), TwipsToPixelsY(widget, height));
}

void PlaceAt(QWidget* child, int left, int top, int width, int height) {
    child->setGeometry(TwipsRect(child, left, top, width, height));
}

QFont DesignFont(double points, bool bold, bool italic) {
    QFont font;
    font.setFamilies(
        {QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("Arimo")});
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

}  // namespace numarel
