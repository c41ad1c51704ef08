#include "services/server/options.h"

namespace korvane {
namespace {

constexpr int kHelpColumn = 24;

const Option* find(std::span<const Option> table, QStringView name) {
  const auto found = std::find_if(table.begin(), table.end(), [&](const Option& option) {
    return name == QLatin1StringView(option.name);
  });
  return found == table.end() ? nullptr : &*found;
}

}  // namespace

std::optional<Options> Options::parse(std::span<const Option> table, const QStringList& arguments,
                                      QString* error) {
  Options options;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& word = arguments[i];
    const qsizetype sign = word.indexOf(u'=');
    QString name = word.startsWith("--"_L1) ? word.mid(2, sign < 0 ? -1 : sign - 2) : QString();
    if (word == "-h"_L1) name = u"help"_s;
    const Option* option = find(table, name);
    if (!option || (!option->operand && sign >= 0)) {
      *error = u"%1 is not understood; see --help"_s.arg(word);
      return std::nullopt;
    }
    QString value;
    if (option->operand) {
      if (sign >= 0)
        value = word.mid(sign + 1);
      else if (i + 1 < arguments.size())
        value = arguments[++i];
      if (value.isEmpty()) {
        *error = u"--%1 needs a value"_s.arg(name);
        return std::nullopt;
      }
    }
    options.values_[name] << value;
  }
  return options;
}

QString Options::help(const char* program, const char* what, std::span<const Option> table) {
  QString text =
      u"Usage: %1 [OPTION]...\n\n%2\n\n"_s.arg(QLatin1StringView(program), QLatin1StringView(what));
  for (const Option& option : table) {
    QString line = u"  --"_s + QLatin1StringView(option.name);
    if (option.operand) line += u' ' + QString::fromLatin1(option.operand);
    for (const QString& words : QString::fromLatin1(option.help).split(u'\n')) {
      text += line.leftJustified(kHelpColumn) + words + u'\n';
      line.clear();
    }
  }
  return text;
}

QString Options::value(const char* name, const QString& otherwise) const {
  const QStringList all = values(name);
  return all.isEmpty() ? otherwise : all.last();
}

QStringList Options::values(const char* name) const {
  return values_.value(QString::fromLatin1(name));
}

std::optional<int> Options::number(const char* name, int low, int high, int otherwise,
                                   QString* error) const {
  if (!has(name)) return otherwise;
  bool isNumber = false;
  const int number = value(name).toInt(&isNumber);
  if (isNumber && number >= low && number <= high) return number;
  *error = u"--%1 takes a number from %2 to %3"_s.arg(QLatin1StringView(name)).arg(low).arg(high);
  return std::nullopt;
}

std::optional<ServerOptions> serverOptions(const Options& options, int port, QString* error) {
  ServerOptions chosen;
  chosen.bind = options.value("bind", chosen.bind);
  for (const QString& list : options.values("allow"))
    if (!chosen.allow.add(list, error)) return std::nullopt;
  const auto given = options.number("port", 0, 65535, port, error);
  const auto connections = options.number("connections", 1, 1000, chosen.limits.connections, error);
  const auto perAddress = options.number("connections-per-address", 1, 1000,
                                         chosen.limits.connectionsPerAddress, error);
  const auto bytes = options.number("record-bytes", 512, 1 << 20,
                                    static_cast<int>(chosen.limits.recordBytes), error);
  if (!given || !connections || !perAddress || !bytes) return std::nullopt;
  chosen.port = *given;
  chosen.limits.connections = *connections;
  chosen.limits.connectionsPerAddress = *perAddress;
  chosen.limits.recordBytes = *bytes;
  const QString encoding = options.value("encoding", u"Windows-1252"_s);
  chosen.encoding = wireTextOf(encoding);
  if (chosen.encoding != WireText::Utf8 &&
      encoding.compare("Windows-1252"_L1, Qt::CaseInsensitive)) {
    *error = u"--encoding takes Windows-1252 or UTF-8"_s;
    return std::nullopt;
  }
  return chosen;
}

}  // namespace korvane
