// The bare loop of the start: an empty Qt window that ends at its first paint.
#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace {

class Empty : public QWidget {
 protected:
  void paintEvent(QPaintEvent*) override {
    QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
  }
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  Empty window;
  window.resize(1280, 800);
  window.show();
  return QApplication::exec();
}
