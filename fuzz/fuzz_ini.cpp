// The look over an INI file before QSettings takes it in, at full speed; an input is the file.

#include "files/inifile.h"
#include "fuzz/target.h"

#include <QSettings>
#include <QVariant>

#include <algorithm>

namespace {

bool isObject(const QVariant &value)
{
    if (value.type() == QVariant::List) {
        const QVariantList values = value.toList();
        return std::any_of(values.cbegin(), values.cend(), isObject);
    }
    const QList<QVariant::Type> harmless = {QVariant::Invalid,   QVariant::String, QVariant::StringList,
                                            QVariant::ByteArray, QVariant::Rect,   QVariant::Size,
                                            QVariant::Point};
    return !harmless.contains(value.type());
}

/** One in fifty, and each that could be a spelling of an object: files take their time. */
bool isWorthAFile(const QByteArray &input)
{
    return (input.contains("ariant") && (input.contains('@') || input.contains('\\')))
           || qChecksum(input.constData(), static_cast<uint>(input.size())) % 50 == 0;
}

/** A key of a group without a name, or without one of its own: asked for it, QSettings looks for another. */
bool isOtherwiseSpelled(const QString &key)
{
    return key.startsWith('/') || key.endsWith('/') || key.contains("//");
}

void compareWithQSettings(const QByteArray &input, const QHash<QString, QString> &texts)
{
    const ScratchFile file(input);
    const QSettings settings(file.path(), QSettings::IniFormat);
    for (const QString &key : settings.allKeys()) {
        const QVariant value = settings.value(key);
        expect(!isObject(value), "QSettings makes no object of what is harmless");
        expect(value.type() != QVariant::StringList || isOtherwiseSpelled(key) || texts.contains(iniKey(key)),
               "what QSettings splits at commas has its text");
    }
}

} // namespace

void tryInput(const QByteArray &input)
{
    const bool isHarmless = isHarmlessIni(input);
    expect(!isHarmless || !(input.contains("@Variant(") || input.contains("@DateTime("))
               || input.contains('\\'),
           "an object that is spelled plainly is not harmless");
    const QHash<QString, QString> texts = iniTextsWithCommas(input);
    for (const QString &text : texts)
        expect(text.size() <= input.size(), "no text is longer than its file");
    if (isHarmless && isWorthAFile(input))
        compareWithQSettings(input, texts);
}
