// The controls of a form, as data. A face (a window, a test, a second screen) mirrors them.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "core/form/picture.h"
#include "core/form/row_source.h"
#include "core/form/watched.h"
#include "platform/video_player.h"

namespace korvane {

class Form;

enum class Kind {
  Image,
  Label,
  Button,
  Slider,
  Grid,
  Frame,
  Text,
  Check,
  Timer,
  PictureArea,
  Surface,
  Sheet,
  Progress
};

// Form units: the design surface is 1280 x 768 of them.
struct Rect {
  int left = 0, top = 0, width = 0, height = 0;
  bool operator==(const Rect&) const = default;
  int right() const { return left + width; }
  int bottom() const { return top + height; }
};

// The design surface.
inline constexpr Rect kSurface{0, 0, 1280, 768};

using Colour = quint32;  // 0x00BBGGRR

struct Colours {
  std::optional<Colour> back, fore, selected, selectedFore,
      header;                           // grids, labels, buttons, frames
  std::optional<Colour> on, off, knob;  // sliders
  bool operator==(const Colours&) const = default;
};

// Edges of the container that a control keeps its distance to when the surface grows; with Spread,
// its place and size grow as the surface does, each way for itself.
enum Anchor : unsigned { Left = 1, Top = 2, Right = 4, Bottom = 8, Spread = 16 };

// How a control looks at first, as its row of the inventory says.
struct Look {
  const char* picture = "";  // "<group>/<name>" of the theme
  const char* caption = "";  // UTF-8; of a list, what it says where it has no row
  const char* tip = "";      // UTF-8
  // The element of COLORS.INI that it wears; of a list those of its rows, its selected row and its
  // header, with '/' between. "" for what its kind wears.
  const char* colours = "";
  int text = 0;                      // height of its text in form units; 0 for what its kind has
  int align = -1;                    // of a label: -1 left, 0 centre, 1 right
  bool bold = false, wraps = false;  // of a label
  bool vertical = false;             // of a slider
  bool accent = false;               // the one button of a dialog that goes on; Enter presses it
  bool cancels = false;  // the one that leaves it without doing anything; Escape presses it
};

class Control : public Noticing {
 public:
  Control(Form& form, QString name, int index, Kind kind);
  virtual ~Control() = default;

  const QString name;
  const int index;  // -1 when no member of an array
  const Kind kind;
  Form& form;
  Control* container = nullptr;  // the frame it lies in; null for the form itself
  unsigned anchors = Left | Top;
  QString spokenName;  // for accessibility
  // It follows the finger within its container: Press, then Release at its new place; no Click.
  bool draggable = false;

  Watched<bool> visible{*this, Aspect::Visible, true};
  Watched<bool> enabled{*this, Aspect::Enabled, true};
  Watched<QString> tag{*this, Aspect::Tag};
  Watched<QString> caption{*this, Aspect::Caption};
  Watched<QString> toolTip{*this, Aspect::Caption};
  Watched<Picture> picture{*this, Aspect::Picture};
  Watched<Rect> rect{*this, Aspect::Rect};
  Watched<Colours> colours{*this, Aspect::Colours};

  void setPicture(const QString& group, const QString& pictureName);
  bool tagged() const { return tag() == "1"_L1; }  // the mode button's own mark
  void changed(Aspect aspect) override;

  Look look;    // at first
  Rect laid;    // where the layout has put it on the present surface
  Rect design;  // on the design surface
};

class Image : public Control {
 public:
  using Control::Control;
};

class Label : public Control {
 public:
  using Control::Control;
  int fontUnits = 26;  // height of the text in form units
  bool bold = false;
  int align = -1;  // -1 left, 0 centre, 1 right
  bool wraps = false;
  Watched<bool> highlighted{*this, Aspect::Colours, false};
};

// A tile. With both a picture and a caption, the picture is the icon above the caption or, in a
// wide one, before it. Its pressed colours are `selected` and `selectedFore`, where it has them.
class Button : public Control {
 public:
  using Control::Control;
  Watched<int> fontUnits{*this, Aspect::Caption, 28};
  Watched<bool> marked{*this, Aspect::Colours, false};  // the chosen one of several
};

class Check : public Control {
 public:
  using Control::Control;
  Watched<bool> checked{*this, Aspect::Value, false};
};

class Frame : public Control {
 public:
  using Control::Control;
};

// A picture, whole or zoomed. A Click carries the place of the finger in `x` and `y`.
class PictureArea : public Control {
 public:
  using Control::Control;

  // What a finger on the picture does; each but Press has a button beside it.
  enum class Hand {
    Press,       // fires Click and DblClick
    Move,        // drags what is shown of a zoomed picture
    ZoomIn,      // a tap zooms in at its place
    ZoomOut,     //   and out
    ZoomWindow,  // zooms into the rectangle that is drawn with the finger
    Magnify,     // shows the picture enlarged around the finger while it is down
  };
  Watched<Hand> hand{*this, Aspect::Enabled, Hand::Press};
  // Two fingers zoom, one drags a zoomed picture, and a swipe over one that fits fires Swipe;
  // beside what `hand` says. Zoom and place fire Change.
  Watched<bool> gestures{*this, Aspect::Enabled, false};

  Watched<double> zoom{*this, Aspect::Value, 0};  // percent of its own pixels; 0 fits it in
  // What point of the picture lies in the middle of the area, each a share of its width and height.
  Watched<double> middleX{*this, Aspect::Value, 0.5}, middleY{*this, Aspect::Value, 0.5};
  double fitted = 100;  // the zoom that fits it in, kept by the face

  Watched<Picture> beside{*this, Aspect::Picture};  // to its right, each in its half of the area
  Watched<int> fade{*this, Aspect::Interval, 0};    // ms that a change of picture takes
  Watched<int> shiftX{*this, Aspect::Value, 0}, shiftY{*this, Aspect::Value, 0};  // device pixels
  bool rounded = true;                                                            // its corners
};

// How far a work is: a bar with its text, which changes colour where the bar ends.
class Progress : public Control {
 public:
  using Control::Control;
  Watched<double> value{*this, Aspect::Value, 0};  // percent
};

// Where a sheet reads its cells from; they count from 0. As a RowSource: nothing throws, and only
// what is in view is asked for.
class CellSource {
 public:
  virtual ~CellSource() = default;
  virtual int count() const = 0;
  virtual QString caption(int cell) const = 0;
  // An empty one where it has none, nothing while it has yet to come.
  virtual std::optional<Picture> picture(int cell) const = 0;
  virtual Colour back(int cell) const = 0;  // its ground: which one says whether it is chosen
};

// Cells of a picture above a caption, in as many columns as there is room for. A drag scrolls and
// coasts; a tap fires Click and the second of two DblClick, with the cell in `row`.
class Sheet : public Control {
 public:
  using Control::Control;
  Watched<int> cellWidth{*this, Aspect::Rows, 128};   // form units
  Watched<int> cellHeight{*this, Aspect::Rows, 152};  // with its caption
  Watched<QString> emptyText{*this, Aspect::Rows};
  Watched<int> top{*this, Aspect::Active, 0};  // form units scrolled by; Scroll when a finger does
  int columns = 1, mostTop = 0;                // kept by the face

  void setCells(std::shared_ptr<const CellSource> source);  // from the first
  const CellSource& cells() const { return *source_; }
  void cellsChanged() { changed(Aspect::Rows); }     // there are others, or one looks different
  void picturesCame() { changed(Aspect::Picture); }  // cells have some that they lacked

 private:
  std::shared_ptr<const CellSource> source_ = noCells();
  static std::shared_ptr<const CellSource> noCells();
};

// An area that a player, a browser or a map draws into: its frames are painted there, or it draws
// by itself into a native window.
class Surface : public Control {
 public:
  using Control::Control;
  // Whose frames are painted; null for none. Not owned; one surface at a time has it.
  Watched<VideoPicture*> video{*this, Aspect::Picture, nullptr};
  Watched<VideoFit> fit{*this, Aspect::Picture, VideoFit::Whole};

  // Who draws by itself is given the native window while the surface shows, and 0 before the window
  // goes. Set before the form is shown.
  std::function<void(quintptr window)> drawer;
  // Whether a press on the native window is the drawer's. Else it fires Click, as one on frames
  // does.
  Watched<bool> drawerPressed{*this, Aspect::Enabled, true};
};

class Slider : public Control {
 public:
  using Control::Control;
  Watched<double> value{*this, Aspect::Value, 0};
  Watched<double> minimum{*this, Aspect::Value, 0};  // at the left or top; may be the larger end
  Watched<double> maximum{*this, Aspect::Value, 100};
  Watched<QString> text{*this, Aspect::Value};
  Watched<QString> bubble{*this, Aspect::Value};  // shown large while the thumb is held
  bool vertical = false;

  // A value from the finger or the program; kept within the range. Fires Change when it moved.
  void moveTo(double to);
};

class TextBox : public Control {
 public:
  using Control::Control;
  Watched<QString> text{*this, Aspect::Value};
  Watched<int> selStart{*this, Aspect::Value, 0};
  Watched<QString> passwordChar{*this, Aspect::Value};
  bool multiLine = false;
};

class Timer : public Control {
 public:
  Timer(Form& form, QString name, int index, Kind kind);
  Watched<int> interval{*this, Aspect::Interval, 1000};  // ms
};

// A list. Rows and columns count from 1; row 0 is the header.
class Grid : public Control {
 public:
  enum class CellKind {
    Text,
    Button,   // a press fires ButtonClicked
    Picture,  // the picture of the row source, the cell's text below it or, in a wide cell, beside
  };
  struct Column {
    QString title;
    int width = 0;  // share of the list's width; 0 for an equal share
    bool hidden = false;
    CellKind kind = CellKind::Text;
    bool operator==(const Column&) const = default;
  };

  Grid(Form& form, QString name, int index, Kind kind);

  Watched<std::vector<Column>> columns{*this, Aspect::Rows};
  Watched<QString> header{*this, Aspect::Rows};     // empty for none
  Watched<QString> emptyText{*this, Aspect::Rows};  // said where there is no row
  Watched<int> fontSize{*this, Aspect::Rows, 12};   // in the unit of GridFontSize
  Watched<int> rowHeight{*this, Aspect::Rows, 19};  // in the unit of GridHeight: two form units
  Watched<int> row{*this, Aspect::Active, 1};       // the active row; 0 when none
  Watched<int> topRow{*this, Aspect::Active, 1};    // the first row in view, kept by the face

  void setRows(std::shared_ptr<const RowSource> source);  // shows these rows from the first
  void setRows(std::vector<RowTable::Row> rows);
  void clear();
  const RowSource& rows() const { return *source_; }
  RowTable* table() { return own_.get(); }  // the rows kept in the list itself; null for others
  void rowsChanged() { changed(Aspect::Rows); }
  void picturesCame() { changed(Aspect::Picture); }  // the rows have some that they lacked

  int maxRows() const { return source_->rowCount(); }
  QString cell(int column, int ofRow) const { return source_->cell(column, ofRow); }
  void setCell(int column, int ofRow, const QString& text);  // only of its own rows
  void deleteRow(int ofRow);                                 // only of its own rows
  void SetActiveCell(int column, int toRow);                 // brings it into view
  // The first row from `from` on whose `column` begins with `text` in any case; 0 for none.
  int SearchCol(int column, int from, const QString& text) const;

 private:
  std::shared_ptr<const RowSource> source_;
  std::shared_ptr<RowTable> own_;  // the same rows, when they are the list's own
};

}  // namespace korvane
