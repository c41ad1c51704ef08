// Which files are pictures, by their names.
#include <gtest/gtest.h>

#include "photos/cls_picture.h"
#include "platform/files/disk_file_system.h"
#include "tests/fakes/fake_imaging.h"
#include "tests/fakes/fake_pump.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

TEST(PhotoNames, EndInOneOfSevenKindsOrInOneOfTheOwners) {
  TemporaryHome home;
  DiskFileSystem files;
  FakeClock clock;
  FakePump pump(clock);
  AppState state;
  Settings settings(files, pump, state, home.path());
  FakeImaging imaging;
  const struct {
    QString name;
    bool always, withKinds;
  } table[] = {{u"a.jpg"_s, true, true},  {u"a.TIF"_s, true, true},    {u"a.jpeg"_s, false, true},
               {u"a.Png"_s, false, true}, {u"noDotJPG"_s, true, true}, {u"a.pjp"_s, false, false},
               {u"a.no"_s, false, false}, {u"png"_s, false, false},    {u"a.png."_s, false, false},
               {{}, false, false}};
  for (const bool kinds : {false, true}) {
    if (kinds) settings.write(key::PhotoKinds, u"jpeg PNG"_s);
    const PhotoKindsRule rule(settings, &imaging);
    for (const auto& [name, always, withKinds] : table)
      EXPECT_EQ(rule.accepts(name), kinds ? withKinds : always) << name.toStdString();
  }
}

}  // namespace
}  // namespace korvane
