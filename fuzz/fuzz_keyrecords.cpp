// The reading of mappers and the extraction of keys; an input is a layout, a line "~~~~" and a mapper.
// Without that line, it is a layout that serves as its own mapper.

#include "devices/keyrecords.h"
#include "files/xmlfile.h"
#include "fuzz/target.h"
#include "script/escape.h"

#include <QHash>

namespace {

using Scripts = QHash<QString, QString>;

const QByteArray Separator = "\n~~~~\n";
const QStringList Kinds = {"pad", "button", "slider", "ignore", "empty"};

/** The script of the last row of each name. */
Scripts lastRows(const QByteArray &mapper)
{
    Scripts scripts;
    const QDomDocument document = parseXml(mapper);
    const QDomNodeList rows = document.elementsByTagName("map");
    for (int i = 0; i < rows.size(); ++i)
        scripts[rows.at(i).toElement().attribute("value")] = rows.at(i).toElement().attribute("action");
    return scripts;
}

void expectLed(const Record &record, const Scripts &scripts)
{
    const QString led = record.value("led");
    expect(led.endsWith(record.value("value")), "the name of a LED ends with that of its key");
    const QString script = unwrapScript(scripts.value(led));
    const bool isButton = record.value("type") == "button";
    expect(record.value("ledaction") == script
               || (isButton && script.isEmpty() && record.value("ledaction") == record.value("action")),
           "the last row of a name is the script of its LED; a button without one may light by its own");
}

void expectRecord(const Record &record, const QString &kind, const Scripts &scripts)
{
    QStringList entries = {"action", "col", "row", "type", "value"};
    if (kind == "pad" || kind == "button")
        entries += {"led", "ledaction"};
    if (kind == "button")
        entries += "ledtype";
    entries.sort();
    expect(record.value("type") == kind, "the records stand kind by kind");
    expect(record.keys() == entries, "a record has the entries of its kind");
    expect(record.value("action") == unwrapScript(scripts.value(record.value("value"))),
           "the last row of a name is the script of its key");
    if (kind == "pad" || kind == "button")
        expectLed(record, scripts);
}

} // namespace

void tryInput(const QByteArray &input)
{
    const int separator = input.indexOf(Separator);
    const QByteArray layout = separator < 0 ? input : input.left(separator);
    const QByteArray mapper = separator < 0 ? input : input.mid(separator + Separator.size());
    const ScratchFile layoutFile(layout);
    const ScratchFile mapperFile(mapper);
    const QList<Record> records = readKeyRecords(layoutFile.path(), mapperFile.path());

    const QDomDocument document = parseXml(layout);
    const Scripts scripts = lastRows(mapper);
    int next = 0;
    for (const QString &kind : Kinds) {
        for (int left = document.elementsByTagName(kind).size(); left > 0; --left)
            expectRecord(records.value(next++), kind, scripts);
    }
    expect(records.size() == next, "each control of the layout has one record");
}
