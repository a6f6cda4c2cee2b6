#pragma once

#include <QFont>
#include <QRect>

class QWidget;

namespace numarel {

// Window geometry is designed in twips, 1440 to the inch; these convert at the logical resolution
// of the screen the widget is on, so windows keep their designed proportions at any resolution.
int TwipsToPixelsX(const QWidget* widget, int twips);
int TwipsToPixelsY(const QWidget* widget, int twips);
int PixelsToTwipsX(const QWidget* widget, int pixels);
int PixelsToTwipsY(const QWidget* widget, int pixels);
QRect TwipsRect(const QWidget* widget, int left, int top, int width, int height);
// Places `child` at a designed position and size.
void PlaceAt(QWidget* child, int left, int top, int width, int height);

// The program's typeface, Arial, with a metric-compatible face where Arial is missing.
QFont DesignFont(double points, bool bold = false, bool italic = false);

}  // namespace numarel
