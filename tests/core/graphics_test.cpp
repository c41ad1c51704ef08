#include "core/graphics.h"

#include "core/theme_vocabulary.h"
#include "tests/fakes/form_world.h"
#include "view/drawing/theme_check.h"

namespace korvane {
namespace {

struct GraphicsTest : FormWorld {
  QString ending(const QString& group, const QString& name) {
    const PicturePtr found = graphics.loadGraphic(group, name);
    return found ? found->path.section(u'/', -1) : QString();
  }
  Graphics graphics{files, state, home.path()};
};

TEST_F(GraphicsTest, TakesGifThenJpgThenSvgInAnyCase) {
  for (const char* file : {"MUSIC/Play.svg", "MUSIC/stop.jpg", "MUSIC/stop.svg", "MUSIC/next.gif",
                           "MUSIC/next.jpg", "MUSIC/continue off.gif", "ok.gif", "splash.jpg"})
    home.put(u"krvgraphics/TEST/"_s + QLatin1StringView(file), "x");
  const QString cases[][3] = {{u"Music"_s, u"play"_s, u"Play.svg"_s},
                              {u"music"_s, u"STOP"_s, u"stop.jpg"_s},
                              {u"music"_s, u"next"_s, u"next.gif"_s},
                              {u"MUSIC"_s, u"continue off"_s, u"continue off.gif"_s},
                              {u"Root"_s, u"ok"_s, u"ok.gif"_s},
                              {u"anywhere"_s, u"SPLASH"_s, u"splash.jpg"_s}};
  for (const auto& [group, name, file] : cases) EXPECT_EQ(ending(group, name), file);
}

TEST_F(GraphicsTest, ReadsAFileOnceButLooksAgainForAMissingOne) {
  EXPECT_EQ(graphics.loadGraphic(u"music"_s, u"late"_s), nullptr);
  for (const char* bytes : {"", "first", "second"}) {
    home.put(u"krvgraphics/TEST/MUSIC/late.gif"_s, bytes);
    const PicturePtr found = graphics.loadGraphic(u"music"_s, u"late"_s);
    EXPECT_EQ(found ? found->bytes : "", *bytes ? "first" : "") << bytes;
  }
}

TEST_F(GraphicsTest, ListsOnlyWholeThemes) {
  home.folder(u"krvgraphics/half/music"_s);
  home.folder(u"krvgraphics/Second/music"_s);
  home.folder(u"krvgraphics/Second/More"_s);
  home.folder(u"krvgraphics/Second/MAIN"_s);
  EXPECT_EQ(graphics.themes(files), (QStringList{u"Second"_s, u"TEST"_s}));
  home.folder(u"krvgraphics/NO"_s);
  for (const QString& name : {u"NO"_s, u""_s, u"."_s, u".."_s, u"TEST/music"_s, u"..\\x"_s,
                              u"half/../TEST"_s, u"none"_s}) {
    state.gTheme = name;
    EXPECT_FALSE(graphics.themeExists()) << qUtf8Printable(name);
  }
}

TEST_F(GraphicsTest, ColoursAreReadableEvenWhereAThemeIsSilent) {
  EXPECT_EQ(palette.back(u"Nothing"), 0u);
  EXPECT_GE(contrast(palette.fore(u"Nothing"), 0), 4.5);
  EXPECT_EQ(palette.back(u"Grid"), 1315860u);
  EXPECT_EQ(palette.fore(u"Grid"), 15790320u);
  EXPECT_NEAR(contrast(0x000000, 0xFFFFFF), 21, 0.01);
}

TEST(Themes, TheShippedOnesHaveAllThatIsShown) {
  for (const char* theme : {"MERIDIAN", "DAYBREAK"}) {
    const QString home = QStringLiteral(THEMES);
    AppState state;
    state.gTheme = QString::fromLatin1(theme);
    DiskFileSystem files;
    FakeClock clock;
    FakePump pump{clock};
    const Settings settings{files, pump, state, home};
    Graphics graphics{files, state, home};
    EXPECT_EQ(themeFaults(graphics, Palette(settings)), QStringList()) << theme;
  }
}

TEST_F(GraphicsTest, TheCheckOfAThemeFindsWhatIsMissingTooSmallAndTooFaint) {
  home.put(u"krvgraphics/TEST/MUSIC/play.gif"_s,
           QByteArray::fromHex(
               "47494638396101000100800000000000ffffff2c00000000010001000002024401003b"));
  home.put(u"krvgraphics/TEST/MUSIC/stop.svg"_s, "<svg");
  home.put(u"krvgraphics/TEST/COLORS.INI"_s, "[COLORS]\nDimBACK=0\nDimFOR=2105376\n");
  const QString faults = themeFaults(graphics, palette).join(u'\n');
  for (const char* fault :
       {"play.gif is 1x1, shown at 96x80 and more", "stop.svg is no readable SVG",
        "root/camera is missing", "root/camerab is missing", "music/normalOff is missing",
        "main/btnmusicb is missing", "radio/radio is missing",
        "text on Dim has a contrast of 1.3:1", "COLORS.INI has no PlayListSaveBACK",
        "COLORS.INI has no EdgeBACK"})
    EXPECT_TRUE(faults.contains(QString::fromLatin1(fault))) << fault << faults.toStdString();
}

TEST(ThemeVocabulary, KnowsTheOtherStateOfAPicture) {
  const std::pair<QString, QString> table[] = {{u"play"_s, u"playb"_s},
                                               {u"stopb"_s, u"stop"_s},
                                               {u"continue off"_s, u"continue On"_s},
                                               {u"DVDPlayerON"_s, u"DVDPlayerOff"_s}};
  for (const auto& [name, other] : table) EXPECT_EQ(otherState(name), other);
}

}  // namespace
}  // namespace korvane
