// make_library tree DIR N: a tree of N small song files, Artist/Album/Song.
// make_library db HOME N: a music database of N songs in HOME. The same N gives the same songs.
#include <QCoreApplication>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "library/data/database.h"
#include "library/data/schema.h"
#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr int kSongsOfAlbum = 10, kAlbumsOfArtist = 5;

// A text of a few words for each number and purpose; about one in twenty has letters beyond ASCII.
QString words(int number, int purpose, int count) {
  static const QStringList plain{u"Love"_s,   u"Night"_s, u"Blue"_s,  u"River"_s, u"Dancing"_s,
                                 u"The"_s,    u"Road"_s,  u"Moon"_s,  u"of"_s,    u"Fire"_s,
                                 u"Summer"_s, u"and"_s,   u"Dream"_s, u"Heart"_s, u"Stone"_s,
                                 u"Golden"_s, u"Rain"_s,  u"Home"_s,  u"Light"_s, u"City"_s};
  static const QStringList accented{u"Café"_s,     u"Über"_s,   u"Señor"_s,
                                    u"Ångström"_s, u"Étoile"_s, u"Ça"_s};
  quint64 seed = static_cast<quint64>(number) * 0x9E3779B97F4A7C15U + static_cast<quint64>(purpose);
  const auto draw = [&seed](qsizetype below) {
    seed = (seed ^ seed >> 31) * 0xBF58476D1CE4E5B9U;
    return static_cast<qsizetype>((seed >> 33) % static_cast<quint64>(below));
  };
  QStringList chosen;
  for (int i = 0; i < count; ++i) chosen << plain[draw(plain.size())];
  if (draw(20) == 0) chosen.first() = accented[draw(accented.size())];
  return chosen.join(u' ');
}

Song song(int number) {
  const int album = number / kSongsOfAlbum, artist = album / kAlbumsOfArtist;
  Song made;
  made.Artist = words(artist, 1, 2) + u' ' + QString::number(artist);
  made.album = words(album, 2, 2) + u' ' + QString::number(album % kAlbumsOfArtist);
  made.SongTitle = words(number, 3, 3) + u' ' + QString::number(number % 1000);
  if (number % 4 == 0)
    made.SongTitle = u"%1 -"_s.arg(number % 10, 2, 10, QChar(u'0')) + made.SongTitle;
  made.year = number % 97 == 0 ? u"-1"_s : QString::number(1960 + number % 60);
  made.SongPath = u"/music/%1/%2/%3.mp3"_s.arg(made.Artist, made.album, made.SongTitle);
  return made;
}

QByteArray tagOf(const Song& song) {
  const auto field = [](const QString& text, qsizetype size) {
    return toWindows1252(text).left(size).leftJustified(size, '\0');
  };
  return "TAG" + field(song.SongTitle, 30) + field(song.Artist, 30) + field(song.album, 30) +
         field(song.year, 4) + field(u"made"_s, 30) + '\x0C';
}

void makeTree(const QString& directory, int count) {
  const QByteArray audio = "\xFF\xFB\x90\x64" + QByteArray(413, '\0');  // one silent frame
  for (int number = 0; number < count; ++number) {
    Song made = song(number);
    if (made.isFavorite()) made.year = u"1999"_s;
    const auto path =
        directory + u'/' + made.Artist + u'/' + made.album + u'/' + made.SongTitle + u".mp3"_s;
    const std::filesystem::path file(path.toStdString());
    if (number % kSongsOfAlbum == 0) std::filesystem::create_directories(file.parent_path());
    const QByteArray bytes = audio + tagOf(made);
    std::ofstream(file, std::ios::binary).write(bytes.constData(), bytes.size());
  }
}

void makeDatabase(const QString& home, int count) {
  std::filesystem::create_directories(home.toStdString());
  Database database(home);
  createEmptyDatabase(database.path());
  OpenedDatabase open(database);
  open->script("PRAGMA cache_size = -400000; PRAGMA synchronous = OFF");
  sql::Transaction whole(*open);
  for (int number = 0; number < count; ++number) database.insertSong(song(number));
  whole.commit();
}

}  // namespace
}  // namespace korvane

int main(int count, char** values) {
  using namespace korvane;
  const QCoreApplication application(count, values);
  const QStringList arguments = application.arguments();
  const int songs = arguments.value(3).toInt();
  if (arguments.size() == 4 && songs > 0 && arguments[1] == "tree"_L1) {
    makeTree(arguments[2], songs);
  } else if (arguments.size() == 4 && songs > 0 && arguments[1] == "db"_L1) {
    makeDatabase(arguments[2], songs);
  } else {
    std::cerr << "make_library tree DIR N\nmake_library db HOME N\n";
    return 2;
  }
  return 0;
}
