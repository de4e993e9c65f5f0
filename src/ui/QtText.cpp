#include "ui/QtText.h"

#include <QFile>

namespace tarnbridge {

QString ToQString(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

std::u16string ToText(const QString& text) {
    return text.toStdU16String();
}

QString PathToQString(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

std::filesystem::path ToPath(const QString& text) {
    return QFile::encodeName(text).toStdString();
}

QString QWords(Word word) {
    return ToQString(Words(word));
}

QString QWords(Word word, std::initializer_list<WordArgument> arguments) {
    return ToQString(Words(word, arguments));
}

QString PlainWords(Word word) {
    QString words = QWords(word);
    words.remove(u'&');
    if (words.endsWith(u':')) words.chop(1);
    return words;
}

QString TipWithKey(const QString& words, const QKeySequence& key) {
    if (key.isEmpty()) return words;
    return QStringLiteral("%1 (%2)").arg(words, key.toString(QKeySequence::NativeText));
}

}  // namespace tarnbridge
