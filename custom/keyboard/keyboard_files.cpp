#include "custom/keyboard/keyboard_files.h"

namespace korvane {
namespace {

constexpr int kMostBytes = 64 << 10, kMostVariants = 8;

// One character, or a pair that is one.
bool isCharacter(const QString& text) {
  return text.toUcs4().size() == 1 && text[0].isPrint() &&
         !text.contains(QChar::ReplacementCharacter);
}

bool putKey(KeyboardLayout& layout, QStringList fields) {
  bool number = false;
  const int code = fields.takeFirst().toInt(&number);
  const auto key = std::ranges::find(layout.keys, code, &Key::code);
  if (!number || key == layout.keys.end() || key->plain.trimmed().isEmpty()) return false;
  if (fields.isEmpty() || fields.size() > 2 + kMostVariants) return false;
  for (const QString& field : fields)
    if (!isCharacter(field)) return false;
  key->plain = key->spoken = fields.takeFirst();
  key->shifted = fields.isEmpty() ? QString() : fields.takeFirst();
  if (key->shifted == "-"_L1 && key->plain != "_"_L1) key->shifted.clear();
  key->variants = fields;
  return true;
}

}  // namespace

std::optional<KeyboardLayout> readKeyboard(const QString& name, const QByteArray& bytes,
                                           QString* error) {
  if (bytes.size() > kMostBytes) {
    *error = u"it is too large"_s;
    return std::nullopt;
  }
  KeyboardLayout layout = usKeyboard();
  layout.name = name;
  int number = 0;
  for (const QString& line : QString::fromUtf8(bytes).split(u'\n')) {
    ++number;
    const QString text = line.simplified();
    if (text.isEmpty() || text.startsWith(u'#')) continue;
    if (putKey(layout, text.split(u' '))) continue;
    *error = u"line %1 is not a key: %2"_s.arg(number).arg(text.left(40));
    return std::nullopt;
  }
  return layout;
}

QStringList KeyboardFiles::names() const {
  QStringList found;
  for (const QString& file : uses_.files.Files(folder()))
    if (file.endsWith(".keys"_L1, Qt::CaseInsensitive)) found << file.chopped(5).toUpper();
  found.removeAll(u"US"_s);
  found.sort();
  found.prepend(u"US"_s);
  return found;
}

KeyboardLayout KeyboardFiles::chosen() const {
  const QString name = uses_.settings.upper(key::KeyboardLayout);
  if (name.isEmpty() || name == "US"_L1 || name == "NO"_L1) return usKeyboard();
  QString trouble = u"there is no such file"_s;
  if (!name.contains(u'/')) {
    for (const QString& file : uses_.files.Files(folder())) {
      if (file.compare(name + u".keys"_s, Qt::CaseInsensitive) != 0) continue;
      const auto bytes = uses_.files.read(FileSystem::BuildPath(folder(), file));
      if (auto layout = readKeyboard(name, bytes.value_or(QByteArray()), &trouble)) return *layout;
    }
  }
  uses_.log.logIt(u"The keyboard %1 is not used: %2."_s.arg(name, trouble));
  return usKeyboard();
}

bool KeyboardFiles::choose(const QString& name, QString* error) {
  return uses_.settings.write(key::KeyboardLayout, name, error);
}

}  // namespace korvane
