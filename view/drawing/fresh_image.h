// Image memory made ready in one request to the system: the first touch of a page costs more than
// drawing on it, and a picture of a screen has a thousand of them.
#pragma once

#include <QImage>

class QWidget;

namespace korvane {

// An image of undefined content to be drawn over whole; null when there is no memory.
QImage freshImage(QSize size, QImage::Format format);

// The same for what a window is drawn on. Call it before the first paint of a new size.
void readyBackingStore(const QWidget& widget);

}  // namespace korvane
