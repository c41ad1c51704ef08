#include "movies/screens/setup_movies_form.h"

namespace korvane {
namespace {

constexpr int kFrames = 92, kFirstLine = 60, kStep = 76;
constexpr Rect kMovies{24, kFrames, 664, kFirstLine + 4 * kStep + 4};
constexpr Rect kDvds{700, kFrames, 556, kFirstLine + 6 * kStep + 4};

// A directory's line: its path, what chooses it, its password and what changes that.
struct Line {
  InventoryRow rows[4];
};

constexpr Line line(int index, const char* container, const Rect& frame, int number) {
  const auto make = [&](const char* name, Kind kind, int left, int width, const char* spoken,
                        const char* caption = "") -> InventoryRow {
    const Rect place{left, kFirstLine + number * kStep, width, 72};
    return {name,      index,      kind,
            place,     Left | Top, spoken,
            container, true,       {.caption = caption, .text = kind == Kind::Button ? 24 : 0}};
  };
  const int right = frame.width - 12;
  return {{make("txtDir", Kind::Text, 12, right - 304, "Directory"),
           make("dirSel", Kind::Button, right - 284, 108, "Choose the directory", "Choose"),
           make("txtpw", Kind::Text, right - 168, 88, "Password"),
           make("dirPW", Kind::Button, right - 72, 72, "Change the password", "Set")}};
}

constexpr InventoryRow frame(const char* name, const Rect& place, const char* caption) {
  return {name, -1, Kind::Frame, place, Left | Top, caption, "", true, {.caption = caption}};
}

constexpr InventoryRow row(const char* name, Kind kind, Rect rect, const char* text,
                           Look look = {}) {
  look.caption = text;
  return {name, -1, kind, rect, Left | Top, text, "", true, look};
}

constexpr auto kRows = [] {
  std::array<InventoryRow, 5 + 4 * kMovieDirectories> rows{};
  size_t next = 0;
  rows[next++] =
      row("lblTitle", Kind::Label, {24, 16, 860, 64}, "Movies Setup", {.text = 44, .bold = true});
  rows[next++] = frame("fraDvd", kDvds, "DVD Directory(s) ");
  rows[next++] = frame("fraMovies", kMovies, "Digital Movie Directory(s)   (AVI,MPEG,MOV)");
  for (int i = 0; i < kMovieDirectories; ++i) {
    const bool dvd = i < kDvdDirectories;
    const Line made =
        dvd ? line(i, "fraDvd", kDvds, i) : line(i, "fraMovies", kMovies, i - kDvdDirectories);
    for (const InventoryRow& each : made.rows) rows[next++] = each;
  }
  rows[next++] = row("lblHint", Kind::Label, {24, 480, 660, 108},
                     "A password is asked for once while the program runs. An empty one is none.",
                     {.text = 26, .wraps = true});
  rows[next++] = row("cmdOK", Kind::Button, {856, 664, 400, 88}, "OK", {.accent = true});
  return rows;
}();

}  // namespace

SetupMoviesForm::SetupMoviesForm(const Uses& uses)
    : Dialog(uses.dialog, u"frmSetupMovies"_s, kRows), uses_(uses), panel_(form_) {
  onClick(u"dirSel", [this](int i) { dirSel_Click(i); });
  onClick(u"txtDir", [this](int i) { dirSel_Click(i); });
  onClick(u"dirPW", [this](int i) { dirPW_Click(i); });
  onClick(u"txtpw", [this](int i) { dirPW_Click(i); });
  onClick(u"cmdOK", [this](int) { leave(); });
}

void SetupMoviesForm::open() {
  run([this] { Form_Load(); });
}

void SetupMoviesForm::Form_Load() {
  for (int i = 0; i < kMovieDirectories; ++i) {
    const size_t at = static_cast<size_t>(i);
    const QString stored = uses_.settings.str(*kMovieDirectoryKeys[at].directory);
    panel_.txtDir[at]->text = stored == "NO"_L1 ? QString() : stored;
    const QString password = uses_.directories.password(i);
    panel_.txtpw[at]->text = password.isEmpty() ? u"NO"_s : password;
    panel_.txtpw[at]->passwordChar = password.isEmpty() ? QString() : u"*"_s;
  }
}

void SetupMoviesForm::store(const std::function<bool(QString*)>& write) {
  QString error;
  if (!write(&error)) dialog_.messages.say(error);
  Form_Load();
}

void SetupMoviesForm::dirSel_Click(int index) {
  ChooserRequest request;
  request.title =
      index < kDvdDirectories ? u"Select DVD Directory"_s : u"Select Movies Directory"_s;
  request.places = {uses_.directories.directory(index)};
  const std::optional<QString> chosen = uses_.chooser.open(request);
  if (!chosen) return;
  store([&](QString* error) { return uses_.directories.setDirectory(index, *chosen, error); });
}

void SetupMoviesForm::dirPW_Click(int index) {
  const QString password = dialog_.messages.ask(u"Enter New Password"_s, true);
  store([&](QString* error) { return uses_.directories.setPassword(index, password, error); });
}

}  // namespace korvane
