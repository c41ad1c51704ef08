#include "custom/buttons/custom_buttons.h"

#include "core/form/panel.h"

namespace korvane {
namespace {

constexpr double kFontStep = 2.4;      // form units of one unit of a font size, as in the lists
constexpr int kFinger = 72;            // units
constexpr float kPatternFont = 14;     // of new buttons
constexpr int kTakesTheScreen = 1000;  // ms that a program runs before the console makes room

Rect rounded(const CustomButton& button) {
  const auto whole = [](float number) { return static_cast<int>(std::lround(number)); };
  return {whole(button.left), whole(button.top), whole(button.width), whole(button.height)};
}

}  // namespace

CustomButtons::CustomButtons(Form& form, Uses uses)
    : form_(form), uses_(uses), buttonTimer_(&controlOf<Timer>(form, u"ButtonTimer")) {
  buttonTimer_->interval = kTakesTheScreen;
  stored_.push_back({{}, button(0).design});
  setFontSize(button(0), kPatternFont);
}

QString CustomButtons::path() const {
  return uses_.graphics.themeDirectory() + u"/Buttonpositons.txt"_s;
}

Button& CustomButtons::button(int index) const {
  return controlOf<Button>(form_, u"cmdbutton", index);
}

Button& CustomButtons::loaded(int index) {
  return dynamic_cast<Button&>(*form_.load(u"cmdbutton", index));
}

void CustomButtons::loadCustomButtons() {
  ButtonFile file;
  readable_ = true;
  if (uses_.files.FileExists(path())) {
    const auto bytes = uses_.files.read(path(), ButtonFile::kMostBytes);
    readable_ = bytes.has_value();
    if (readable_)
      file = readButtons(*bytes);
    else
      uses_.log.logIt(
          u"%1 cannot be read or is too large; its buttons are not shown"_s.arg(path()));
  }
  for (const ButtonFile::BrokenLine& line : file.broken)
    uses_.log.logIt(
        u"%1, line %2 is no button: %3"_s.arg(path(), QString::number(line.number), line.trouble));
  unread_ = file.unread;
  stored_.resize(1);
  for (const CustomButton& each : file.buttons) {
    stored_.emplace_back();
    fill(count(), each);
  }
  for (int spare = count() + 1; spare <= form_.upperBound(u"cmdbutton"); ++spare) {
    Button& gone = button(spare);
    gone.visible = false;
    gone.caption = QString();
    setAction(gone, QString());
  }
  button(0).colours = palette();
}

void CustomButtons::fill(int index, const CustomButton& from) {
  Button& made = loaded(index);
  Rect place = rounded(from);
  // What the file has made too small for a finger or put off the surface can be pressed all the
  // same.
  place.width = std::max(place.width, kFinger);
  place.height = std::max(place.height, kFinger);
  place.left = std::clamp(place.left, 0, std::max(0, form_.design.width - place.width));
  place.top = std::clamp(place.top, 0, std::max(0, form_.design.height - place.height));
  stored_[static_cast<size_t>(index)] = {from, place};
  form_.moveDesign(made, place);
  made.caption = from.caption;
  setFontSize(made, from.fontSize);
  setAction(made, from.action);
  made.colours = palette();
}

Colours CustomButtons::palette() const {
  Colours colours = uses_.palette.button(u"CustomButtons");
  colours.selected = uses_.palette.back(u"ButtonPressed");
  colours.selectedFore = uses_.palette.fore(u"ButtonPressed");
  colours.on = uses_.palette.back(u"Accent");
  return colours;
}

void CustomButtons::show() const {
  for (int i = 0; i <= form_.upperBound(u"cmdbutton"); ++i)
    button(i).visible = !button(i).caption().isEmpty();
}

void CustomButtons::hide() const {
  for (int i = 0; i <= form_.upperBound(u"cmdbutton"); ++i) button(i).visible = false;
}

Button* CustomButtons::add(Rect onDesign) {
  if (count() >= ButtonFile::kMostButtons) return nullptr;
  CustomButton fresh;
  fresh.left = static_cast<float>(onDesign.left);
  fresh.top = static_cast<float>(onDesign.top);
  fresh.width = static_cast<float>(onDesign.width);
  fresh.height = static_cast<float>(onDesign.height);
  fresh.fontSize = entry(0).stored.fontSize;
  stored_.emplace_back();
  fill(count(), fresh);
  return &button(count());
}

void CustomButtons::setAction(Button& button, const QString& action) const {
  button.tag = action;
  button.toolTip = action;
  const ButtonWord* word = uses_.words.find(action);
  button.picture = action.isEmpty()
                       ? Picture()
                       : Picture{u"main"_s, word ? word->icon : u"btnprogram"_s, nullptr};
}

void CustomButtons::setFontSize(Button& button, float size) {
  stored_[static_cast<size_t>(button.index)].stored.fontSize = size;
  button.fontUnits = static_cast<int>(std::lround(size * kFontStep));
}

bool CustomButtons::save(QString* error) {
  if (!readable_) {
    *error = u"%1 could not be read, so it is not replaced. Move it away, then save again."_s.arg(
        path());
    return false;
  }
  std::vector<CustomButton> kept;
  for (int i = 1; i <= count(); ++i) {
    const Button& each = button(i);
    if (each.tag() == "DELETE"_L1) continue;
    CustomButton line = entry(i).stored;
    if (each.design != entry(i).placed) {
      line.left = static_cast<float>(each.design.left);
      line.top = static_cast<float>(each.design.top);
      line.width = static_cast<float>(each.design.width);
      line.height = static_cast<float>(each.design.height);
    }
    line.caption = each.caption();
    line.action = each.tag();
    kept.push_back(line);
  }
  return uses_.files.replace(path(), writeButtons(kept, unread_), error);
}

void CustomButtons::cmdbutton_Click(int index) {
  if (uses_.screen.busy()) return;
  const QString tag = button(index).tag();
  if (const ButtonWord* word = uses_.words.find(tag))
    word->act();
  else if (!tag.isEmpty() && admits())
    startProgram(tag);
}

void CustomButtons::startProgram(const QString& action) {
  const QString slashed = FileSystem::slashed(action);
  const QString program = uses_.files.resolve(slashed).value_or(slashed);
  if (const auto known = tasks_.find(program);
      known != tasks_.end() && uses_.programs.activate(known->second)) {
    programShown();
    return;
  }
  QString error;
  const int task = uses_.programs.start(
      program,
      [this, program] {
        if (!uses_.programs.running(tasks_[program])) tasks_.erase(program);
        if (tasks_.empty()) programsEnded();
      },
      &error);
  if (task == 0) {
    uses_.log.logIt(u"The button's program %1 was not started: %2"_s.arg(program, error));
    return;
  }
  tasks_[program] = task;
  buttonTimer_->enabled = false;  // counts anew
  buttonTimer_->enabled = true;
}

// What is over at once has shown nothing.
void CustomButtons::ButtonTimer_Timer() {
  buttonTimer_->enabled = false;
  if (!tasks_.empty()) programShown();
}

}  // namespace korvane
