// A console's window with a small form, a theme of three pictures, and a finger.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include "tests/fakes/fake_file_system.h"
#include "tests/fakes/print.h"
#include "view/controls/grid_widget.h"
#include "view/controls/slider_widget.h"
#include "view/window/finger.h"
#include "view/window/qt_pump.h"

namespace korvane {

constexpr InventoryRow kSmallForm[] = {
    {"MoviePic", 0, Kind::Surface, {620, 120, 160, 120}, Left | Top, "Movie", "", false},
    {"MoviePic", 1, Kind::Surface, {620, 250, 170, 90}, Left | Top, "Screen", "", false},
    {"MSWebDVD1", -1, Kind::Surface, {620, 350, 300, 200}, Left | Top, "DVD", "", false},
    {"cmdTop", 0, Kind::Image, {10, 10, 100, 100}, Left | Top, "Artists"},
    {"cmdTop", 1, Kind::Image, {120, 10, 100, 100}, Left | Top, "Albums"},
    {"lblState", -1, Kind::Label, {240, 10, 300, 40}, Left | Top | Right, "State"},
    {"Grid", 0, Kind::Grid, {10, 120, 600, 400}, Left | Top | Right | Bottom, "Songs"},
    {"Slider1", -1, Kind::Slider, {10, 600, 648, 72}, Left | Bottom, "Position"},
    {"framEdit", -1, Kind::Frame, {800, 100, 300, 300}, Right | Top, "", "", false},
    {"cmdSave", -1, Kind::Button, {10, 10, 200, 80}, Left | Top, "Save", "framEdit"},
    {"chkOn", -1, Kind::Check, {800, 420, 300, 72}, Right | Top, "On"},
    {"txtName", -1, Kind::Text, {800, 500, 300, 72}, Right | Top, "Name"},
    {"coverArt", -1, Kind::PictureArea, {800, 600, 100, 100}, Right | Bottom, "Cover"},
    {"picTransition", -1, Kind::PictureArea, {20, 20, 400, 300}, Left | Top, "Show", "", false},
    {"sheetPictures", -1, Kind::Sheet, {20, 20, 400, 320}, Left | Top, "Pictures", "", false},
    {"barDone", -1, Kind::Progress, {20, 400, 400, 48}, Left | Top, "Done", "", false},
    {"Ticker", -1, Kind::Timer, {}, 0, ""},
};
constexpr InventoryRow kBoxForm[] = {
    {"msg", -1, Kind::Label, {20, 20, 360, 60}, Left | Top, "Message"},
    {"cmdControls", 0, Kind::Button, {20, 100, 160, 80}, Left | Top, "Yes"},
};

inline QByteArray square(const char* colour) {
  return R"(<svg xmlns="http://www.w3.org/2000/svg" width="10" height="10">
      <rect width="10" height="10" fill=")" +
         QByteArray(colour) + R"("/></svg>)";
}

struct CountedRows : RowSource {
  explicit CountedRows(int count) : count_(count) {}
  int rowCount() const override { return count_; }
  QString cell(int column, int row) const override {
    ++asked;
    return u"cell %1 of %2"_s.arg(column).arg(row);
  }
  mutable int asked = 0;

 private:
  int count_;
};

class SmallConsole : public testing::Test {
 protected:
  SmallConsole() {
    const std::pair<QString, QByteArray> pictures[] = {{u"play.svg"_s, square("#0000ff")},
                                                       {u"playb.svg"_s, square("#ff0000")},
                                                       {u"solo.svg"_s, square("#00ff00")},
                                                       {u"broken.svg"_s, "<svg this is not"}};
    for (const auto& [name, bytes] : pictures)
      files.put(u"/home/krvgraphics/T/MUSIC/"_s + name, bytes);
    state.gTheme = u"T"_s;
    hear();
    host.show(form);
    settle();
  }
  ~SmallConsole() override { host.close(); }

  // Writes each event of the form to `heard`, as "name(index) event [column,row]".
  void hear() {
    static const std::pair<Event::Type, QString> types[] = {
        {Event::Click, u"click"_s},   {Event::DblClick, u"dblclick"_s},
        {Event::Press, u"press"_s},   {Event::Release, u"release"_s},
        {Event::Change, u"change"_s}, {Event::ButtonClicked, u"button"_s},
        {Event::Tick, u"tick"_s}};
    QStringList names;
    for (const auto& control : form.controls()) names << control->name;
    names.removeDuplicates();
    for (const QString& name : names) {
      for (const auto& [type, word] : types) {
        if (type == Event::DblClick && name == "cmdTop"_L1) continue;
        form.on(name, type, [this, said = word](Control& control, const Event& event) {
          const QString index = control.index > 0 ? QString::number(control.index) : QString();
          QString line = control.name + index + u' ' + said;
          if (control.kind == Kind::Grid) line += u" %1,%2"_s.arg(event.column).arg(event.row);
          heard << line;
        });
      }
    }
  }

  template <class T>
  T& control(const char* name, int index = -1) {
    return dynamic_cast<T&>(*form.find(QString::fromLatin1(name), index));
  }
  ControlWidget& widget(const char* name, int index = -1) {
    return *host.view(form)->widget(*form.find(QString::fromLatin1(name), index));
  }
  GridWidget& gridWidget() { return dynamic_cast<GridWidget&>(widget("Grid", 0)); }
  void tap(const char* name, int index = -1) {
    ControlWidget& target = widget(name, index);
    finger.tap(target, target.rect().center());
  }
  void tapRow(int row, bool twice = false) {
    const QPoint at = gridWidget().rowRect(row).center();
    twice ? finger.doubleTap(gridWidget(), at) : finger.tap(gridWidget(), at);
  }
  QColor colourAt(const char* name, int index = -1) {
    ControlWidget& of = widget(name, index);
    return of.grab().toImage().pixelColor(of.rect().center());
  }
  static void settle(int milliseconds = 0) {
    QElapsedTimer passed;
    passed.start();
    do QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    while (passed.elapsed() < milliseconds);
  }
  static bool comes(const std::function<bool()>& done) {
    QElapsedTimer waited;
    for (waited.start(); !done() && waited.elapsed() < 3000;) settle(1);
    return done();
  }
  QStringList take() { return std::exchange(heard, {}); }

  FakeFileSystem files;
  AppState state;
  Graphics graphics{files, state, u"/home"_s};
  Form form{u"frmMain"_s, kSmallForm, kSurface, FormRole::Main};
  Form box{u"frmMsgBox"_s, kBoxForm, {0, 0, 400, 200}};
  PressGate gate;
  QtPump pump{gate};
  WindowHost host{graphics, gate, QSize(1280, 768)};
  Finger finger{host};
  QStringList heard;
};

}  // namespace korvane
