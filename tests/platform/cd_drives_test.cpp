// The machine's CD drives: as the kernel lists them, and by a UDisks2 of the test's own.
#include <gtest/gtest.h>
#include <signal.h>

#include <QDBusMessage>

#include "platform/disc/cd_drives_udisks.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"
#include "tests/platform/private_bus.h"

namespace korvane {
namespace {

QStringList lines(const std::vector<SwdCDRipper::Drive>& drives) {
  QStringList all;
  for (const auto& drive : drives) all << drive.source + u": "_s + drive.name;
  return all;
}

TEST(CdDrivesPlain, areThoseOfTheKernel) {
  const TemporaryHome root;
  LoopPump pump;
  CdDrivesPlain drives(pump, root.path());
  int changes = 0;
  drives.changed = [&] { ++changes; };
  EXPECT_EQ(lines(drives.drives()), QStringList());
  root.put(u"sys/block/sr0/device/vendor"_s, "HL-DT-ST\n");
  root.put(u"sys/block/sr0/device/model"_s, "DVDRAM GT30N    \n");
  root.put(u"proc/sys/dev/cdrom/info"_s,
           "CD-ROM information, Id: cdrom.c 3.20 2003/12/17\n\ndrive name:\t\tsr1\tsr0\n"
           "drive speed:\t\t24\t24\n");
  EXPECT_TRUE(pump.wait(10'000, [&] { return changes == 1; }));
  EXPECT_EQ(lines(drives.drives()), QStringList({u"/dev/sr0: HL-DT-ST DVDRAM GT30N (sr0)"_s,
                                                 u"/dev/sr1: CD drive (sr1)"_s}));
  root.put(u"proc/sys/dev/cdrom/info"_s, "CD-ROM information\n\ndrive name:\n");
  EXPECT_EQ(lines(drives.drives()), QStringList());
}

// Those that hold where UDisks2 does not run.
struct FakeDrives : CdDrives {
  std::vector<SwdCDRipper::Drive> drives() const override {
    return {{u"/dev/plain"_s, u"plain"_s}};
  }
  void eject(const QString& source) override { ejected << source; }
  QStringList ejected;
};

struct Udisks2Test : testing::Test {
  Udisks2Test() {
    drives.changed = [this] { heard = lines(drives.drives()); };
  }
  ~Udisks2Test() override { end(); }
  void begin() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address);
    service.setProcessEnvironment(environment);
    service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    service.start(u"/usr/bin/python3"_s, {u"-m"_s, u"dbusmock"_s, u"--session"_s, u"--template"_s,
                                          QStringLiteral(UDISKS2_MOCK)});
    ASSERT_TRUE(pump.wait(20'000, [this] { return call(u"Ejected"_s, {}).errorName().isEmpty(); }))
        << "python3-dbusmock must be installed";
  }
  void end() {
    service.kill();
    service.waitForFinished();
  }
  QDBusMessage call(const QString& method, const QVariantList& arguments) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.freedesktop.UDisks2"_s, u"/org/freedesktop/UDisks2"_s,
                                       u"org.freedesktop.DBus.Mock"_s, method);
    message.setArguments(arguments);
    return tester.call(message, QDBus::Block, 5000);
  }
  QVariant tell(const QString& method, const QVariantList& arguments = {}) {
    const QDBusMessage answer = call(method, arguments);
    EXPECT_EQ(answer.errorMessage(), QString()) << method.toStdString();
    return answer.arguments().value(0);
  }
  void addDrive(const QString& device, const QString& model, const QStringList& media) {
    tell(u"AddDrive"_s, {device, u"MAKER"_s, model, media});
  }
  bool hears(const QStringList& wanted) {
    return pump.wait(10'000, [&] { return heard == wanted; });
  }

  PrivateBus bus;
  QProcess service;
  QDBusConnection tester = bus.connect(u"tester"_s);
  LoopPump pump;
  FakeDrives* plain = new FakeDrives;
  CdDrivesUdisks drives{std::make_unique<Udisks>(pump, bus.connect(u"console"_s)),
                        std::unique_ptr<CdDrives>(plain)};
  QStringList heard;  // the drives, at the last news
};

const QString kPlain = u"/dev/plain: plain"_s;
const QString kFirst = u"/dev/sr0: MAKER BD-RE (sr0)"_s;
const QString kSecond = u"/dev/sr1: MAKER CD-ROM (sr1)"_s;

TEST_F(Udisks2Test, drivesComeAndGoAndAreOpened) {
  begin();
  addDrive(u"sr0"_s, u"BD-RE"_s, {u"optical_cd"_s, u"optical_bd"_s});
  addDrive(u"sda"_s, u"SSD"_s, {});
  addDrive(u"sdb"_s, u"READER"_s, {u"flash_sd"_s});
  EXPECT_EQ(lines(drives.drives()), QStringList(kPlain)) << "what is known at once";
  EXPECT_TRUE(hears({kFirst}));
  addDrive(u"sr1"_s, u"CD-ROM"_s, {u"optical_cd"_s});
  EXPECT_TRUE(hears({kFirst, kSecond}));
  tell(u"Rename"_s, {u"sr1"_s, u"OTHER"_s, u"CD"_s});
  EXPECT_TRUE(hears({kFirst, u"/dev/sr1: OTHER CD (sr1)"_s}));
  tell(u"RemoveDrive"_s, {u"sr1"_s});
  EXPECT_TRUE(hears({kFirst}));

  drives.eject(u"/dev/sr0"_s);
  const auto ejected = [this] { return tell(u"Ejected"_s).toStringList(); };
  EXPECT_TRUE(pump.wait(5000, [&] { return ejected() == QStringList(u"Drive_of_sr0"_s); }));
  tell(u"Refuse"_s, {true});
  drives.eject(u"/dev/sr0"_s);
  EXPECT_TRUE(pump.wait(5000, [this] { return plain->ejected == QStringList(u"/dev/sr0"_s); }));
  drives.eject(u"/dev/sr9"_s);
  EXPECT_EQ(plain->ejected.value(1), u"/dev/sr9"_s) << "one that the service does not know";

  end();
  EXPECT_TRUE(hears({kPlain})) << "the service has ended";
  begin();
  addDrive(u"sr0"_s, u"BD-RE"_s, {u"optical_cd"_s});
  EXPECT_TRUE(hears({kFirst})) << "it came again";
}

TEST_F(Udisks2Test, aServiceThatHangsKeepsNobodyWaiting) {
  begin();
  addDrive(u"sr0"_s, u"BD-RE"_s, {u"optical_cd"_s});
  const auto pid = static_cast<pid_t>(service.processId());
  ::kill(pid, SIGSTOP);
  QElapsedTimer time;
  time.start();
  EXPECT_EQ(lines(drives.drives()), QStringList(kPlain));
  drives.eject(u"/dev/sr0"_s);
  EXPECT_EQ(plain->ejected, QStringList(u"/dev/sr0"_s));
  EXPECT_LT(time.elapsed(), 500);
  pump.wait(200, [] { return false; });
  EXPECT_EQ(heard, QStringList());
  ::kill(pid, SIGCONT);
  EXPECT_TRUE(hears({kFirst}));
}

TEST_F(Udisks2Test, withoutTheServiceTheKernelsListHolds) {
  EXPECT_EQ(lines(drives.drives()), QStringList(kPlain));
  pump.wait(300, [] { return false; });
  EXPECT_EQ(lines(drives.drives()), QStringList(kPlain));
  CdDrivesUdisks unconnected(std::make_unique<Udisks>(pump, QDBusConnection(u"none"_s)),
                             std::make_unique<FakeDrives>());
  EXPECT_EQ(lines(unconnected.drives()), QStringList(kPlain));
  qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus.address.toLatin1());
  makeCdDrives(pump)->drives();  // gone before the bus has answered
  pump.wait(300, [] { return false; });
}

}  // namespace
}  // namespace korvane
