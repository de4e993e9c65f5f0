#pragma once

#include <QKeySequence>
#include <QString>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

#include "core/base/StringTable.h"

namespace tarnbridge {

// Where the program's text and Qt's meet. Both are UTF-16, so nothing is lost in either direction.

QString ToQString(std::u16string_view text);
std::u16string ToText(const QString& text);

/// Names of files are bytes of the system; those that aren't UTF-8 are shown with replacement characters.
QString PathToQString(const std::filesystem::path& path);
std::filesystem::path ToPath(const QString& text);

/// The program's words for Qt.
QString QWords(Word word);
QString QWords(Word word, std::initializer_list<WordArgument> arguments);

/// A label's words without the `&` that marks its key and without its colon, for an accessible name or a
/// tip.
QString PlainWords(Word word);

/// A tip with the key that does the same.
QString TipWithKey(const QString& words, const QKeySequence& key);

}  // namespace tarnbridge
