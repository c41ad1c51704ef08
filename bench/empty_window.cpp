// The bare loop of the start: an empty Qt window, which stands until it is killed.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(1280, 800);
  window.show();
  return QApplication::exec();
}
