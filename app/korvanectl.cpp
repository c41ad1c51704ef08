// korvanectl: speaks to a running console through its control socket.
#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <cstdio>

#include "platform/text.h"

namespace korvane {
namespace {

constexpr char kHelp[] =
    "Usage: korvanectl SOCKET COMMAND [ARGUMENT]... [KEY=VALUE]...\n"
    "       korvanectl SOCKET < LINES\n"
    "\n"
    "Presses, reads and waits for the controls of a console started with --control SOCKET.\n"
    "Without a command, each line of the input is sent as a JSON object.\n"
    "\n"
    "  press NAME [INDEX]           a tap; row=7 col=1 in a list, row=0 of a sheet's cells,\n"
    "                               x=90 y=40 at a place of the control\n"
    "  doublepress NAME [INDEX]     two taps\n"
    "  hold NAME [INDEX], release   a finger that stays down; dx=0 dy=-90 slides before it lets "
    "go\n"
    "  drag NAME [INDEX]            dx=0 dy=-200 ms=200\n"
    "  type TEXT                    key NAME, as Return or Ctrl+A\n"
    "  set NAME [INDEX] VALUE       a slider, a text, a check, a list's row, a sheet's top\n"
    "  get NAME [INDEX]             all about a control\n"
    "  rows NAME [INDEX]            from=1 count=20; a sheet's cells from 0\n"
    "  wait NAME [INDEX] PROPERTY VALUE   or contains=TEXT, not=VALUE, at_least=NUMBER; "
    "timeout_ms=5000\n"
    "  messages [ANSWER]            the boxes open; answers the topmost one\n"
    "  screenshot FILE              tree [FORM]      quit\n"
    "\n"
    "Prints the answer, one JSON object a line. Exit status 0 when all went well, 1 when the "
    "console\n"
    "refused, 2 when it could not be asked.\n";

constexpr int kAnswerMs = 120'000;

// The words a command takes by their place; "index?" may be left out.
struct Command {
  const char* name;
  std::initializer_list<const char*> words;
  int least;
};
const Command kCommands[] = {
    {"press", {"name", "index?"}, 1},
    {"doublepress", {"name", "index?"}, 1},
    {"hold", {"name", "index?"}, 1},
    {"release", {}, 0},
    {"drag", {"name", "index?"}, 1},
    {"type", {"text"}, 1},
    {"key", {"key"}, 1},
    {"set", {"name", "index?", "value"}, 2},
    {"get", {"name", "index?"}, 1},
    {"rows", {"name", "index?"}, 1},
    {"wait", {"name", "index?", "property", "value"}, 2},
    {"messages", {"answer"}, 0},
    {"screenshot", {"file"}, 1},
    {"tree", {"form"}, 0},
    {"quit", {}, 0},
};

QJsonValue valueOf(const QString& word) {
  bool number = false;
  const double value = word.toDouble(&number);
  if (number) return value;
  if (word == "true"_L1 || word == "false"_L1) return word == "true"_L1;
  return word;
}

bool isText(QLatin1StringView field) {
  for (const char* text : {"name", "text", "key", "file", "property", "answer", "form", "contains"})
    if (field == QLatin1StringView(text)) return true;
  return false;
}

// The object for the words of a command line; empty with `error`.
QJsonObject objectOf(QStringList words, QString* error) {
  const QString name = words.takeFirst();
  const auto* command =
      std::find_if(std::begin(kCommands), std::end(kCommands),
                   [&](const Command& c) { return name == QLatin1StringView(c.name); });
  if (command == std::end(kCommands)) {
    *error = u"unknown command \"%1\""_s.arg(name);
    return {};
  }
  QJsonObject object{{u"command"_s, name}};
  for (qsizetype i = words.size() - 1; i > 0; --i) {
    const qsizetype equals = words[i].indexOf(u'=');
    if (equals <= 0 || name == "type"_L1) continue;
    object[words[i].first(equals)] = valueOf(words[i].sliced(equals + 1));
    words.removeAt(i);
  }
  if (words.size() < command->least && object.size() == 1) {
    *error = u"%1 needs more words"_s.arg(name);
    return {};
  }
  for (const char* each : command->words) {
    QLatin1StringView field(each);
    if (words.isEmpty()) break;
    if (field == "index?"_L1) {
      bool number = false;
      words.first().toInt(&number);
      const bool last = name == "set"_L1 && words.size() == 1;
      if (!number || last) continue;
      field.chop(1);
    }
    object[field] = isText(field) ? QJsonValue(words.first()) : valueOf(words.first());
    words.removeFirst();
  }
  if (!words.isEmpty()) *error = u"too many words for %1"_s.arg(name);
  return object;
}

class Link {
 public:
  bool open(const QString& path) {
    socket_.connectToServer(path);
    if (socket_.waitForConnected(3000)) return true;
    std::fprintf(stderr, "korvanectl: %s: %s\n", qPrintable(path),
                 qPrintable(socket_.errorString()));
    return false;
  }

  // Sends a line and prints its answer; the exit status.
  int ask(const QByteArray& line) {
    socket_.write(line + '\n');
    while (!socket_.canReadLine()) {
      if (!socket_.waitForReadyRead(kAnswerMs)) {
        std::fprintf(stderr, "korvanectl: no answer: %s\n", qPrintable(socket_.errorString()));
        return 2;
      }
    }
    const QByteArray answer = socket_.readLine();
    std::fwrite(answer.constData(), 1, static_cast<size_t>(answer.size()), stdout);
    std::fflush(stdout);
    return QJsonDocument::fromJson(answer).object().value("ok"_L1).toBool() ? 0 : 1;
  }

 private:
  QLocalSocket socket_;
};

int run(QStringList words) {
  if (words.isEmpty() || words.contains("--help"_L1)) {
    std::fputs(kHelp, words.isEmpty() ? stderr : stdout);
    return words.isEmpty() ? 2 : 0;
  }
  const QString path = words.takeFirst();
  QByteArray line;
  if (!words.isEmpty()) {
    QString error;
    line = QJsonDocument(objectOf(words, &error)).toJson(QJsonDocument::Compact);
    if (!error.isEmpty()) {
      std::fprintf(stderr, "korvanectl: %s\n", qPrintable(error));
      return 2;
    }
  }
  Link link;
  if (!link.open(path)) return 2;
  if (!line.isEmpty()) return link.ask(line);
  QFile input;
  if (!input.open(stdin, QIODevice::ReadOnly)) return 2;
  int worst = 0;
  while (!input.atEnd()) {
    const QByteArray each = input.readLine().trimmed();
    if (!each.isEmpty()) worst = std::max(worst, link.ask(each));
  }
  return worst;
}

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return korvane::run(application.arguments().sliced(1));
}
