#include "support/devices.h"
#include "support/files.h"

#include <QDomDocument>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

const QString Mappings = ":/icons/Mappings/";
/** The verbs that the mappers may use, as they stand in VirtualDJ's own list. */
const QStringList Verbs =
    QString("blink browser_scroll browser_window color constant cue_color cue_stop cycle delete_cue "
            "down dump effect_active effect_disable_all effect_slider effects_used eq_low filter "
            "get_constant get_sample_color goto has_cue hot_cue is_sync level load loaded loop "
            "loop_double loop_exit loop_half master_volume nothing off on os2l_cmd pad pad_button_color "
            "pad_page param_bigger pfl pioneer_cue play play_pause quantize_all sampler_bank "
            "sampler_loaded sampler_play_stop sampler_play_stutter sampler_stop sampler_used "
            "sampler_velocity sampler_volume sampler_volume_master sampler_volume_nogroup set shift "
            "slicer song_pos sync toggle var")
        .split(' ');

struct Row
{
    QString value;
    QString action;
};

struct Control
{
    QString tag;
    QString name;
    QString led; ///< empty for a control without a LED
};

/** A file of the catalogue; an empty document where it cannot be read or is not well-formed. */
QDomDocument read(const QString &fileName)
{
    QDomDocument document;
    return document.setContent(bytesOf(Mappings + fileName)) ? document : QDomDocument();
}

QList<Control> controlsOf(const QString &device)
{
    QList<Control> controls;
    const QDomDocument layout = read(device + ".xml");
    QDomElement element = layout.documentElement().firstChildElement();
    for (; !element.isNull(); element = element.nextSiblingElement()) {
        const QString name = element.attribute("name");
        QString led = element.attribute("colorled", element.attribute("led"));
        if (!led.isEmpty())
            led += name;
        controls += {element.tagName(), name, led};
    }
    return controls;
}

QList<Row> rowsOf(const QString &device)
{
    QList<Row> rows;
    const QDomDocument mapper = read(device + " mapping.xml");
    QDomElement map = mapper.documentElement().firstChildElement();
    for (; !map.isNull(); map = map.nextSiblingElement())
        rows += {map.attribute("value"), map.attribute("action")};
    return rows;
}

QMap<QString, QString> actionsOf(const QString &device)
{
    QMap<QString, QString> actions;
    for (const Row &row : rowsOf(device))
        actions.insert(row.value, row.action);
    return actions;
}

/** Names that a layout knows, and the LEDs of its keys with them. */
QSet<QString> namesOf(const QString &device)
{
    QSet<QString> names;
    for (const Control &control : controlsOf(device)) {
        names += control.name;
        if (!control.led.isEmpty())
            names += control.led;
    }
    return names;
}

bool isLed(const QString &value)
{
    return value.contains("LED_");
}

/** A row whose LED tells a level rather than a colour or a state. */
bool isLevel(const QString &value)
{
    return QRegularExpression("^LED_FADER_[1-8]$").match(value).hasMatch();
}

/** The one row that is given to the letter, and so keeps no rule of ours. */
bool isGiven(const QString &device, const QString &value)
{
    return device == "Novation Launchpad" && value == "LED_1.1";
}

/** Names that a layout has and its factory mapper leaves out. */
QSet<QString> leftOutOf(const QString &device)
{
    if (device != "AKAI APC Mini")
        return {};
    QSet<QString> names = {"SOLO", "DEVICE"};
    for (const Control &control : controlsOf(device)) {
        if (control.tag == "button" && control.name != "STOP_ALL_CLIPS")
            names += control.led;
    }
    return names;
}

/**
 * Cuts a script at its "?", ":" and "&" outside quotes.
 *
 * @param marks  takes the marks in their order, one sign each
 * @return       the parts between the marks, trimmed; a part that lacks is empty
 */
QStringList partsOf(const QString &script, QString *marks = nullptr)
{
    QStringList parts = {QString()};
    bool inQuotes = false;
    for (const QChar sign : script) {
        inQuotes = inQuotes != (sign == '\'');
        if (!inQuotes && QString("?:&").contains(sign)) {
            parts += QString();
            if (marks)
                *marks += sign;
        } else {
            parts.last() += sign;
        }
    }
    for (QString &part : parts)
        part = part.trimmed();
    return parts;
}

/** The verbs of a part: its first, and the one whose value it compares. */
QStringList verbsOf(QString part)
{
    part.remove(QRegularExpression("^(deck (left|right) |not )+"));
    const QStringList words = part.split(' ');
    if (words.first() == "param_bigger")
        return {words.first(), words.value(2)};
    return {words.first()};
}

QString faultOf(const QString &script)
{
    if (script.isEmpty())
        return "empty";
    if (script.count('\'') % 2)
        return "quotes are not balanced";
    if (script.contains(QRegularExpression("[\"<>`\\\\/;()]|&&|  |^ | $")))
        return "a sign that has no business here";

    QString marks;
    const QStringList parts = partsOf(script, &marks);
    if (parts.contains(QString()))
        return "a part lacks between two marks, or behind the last";
    QString spaced = parts.first();
    for (int i = 0; i < marks.size(); ++i)
        spaced += QString(" %1 ").arg(marks.at(i)) + parts.at(i + 1);
    if (spaced != script)
        return "a mark without a blank on both sides";
    int open = 0;
    for (const QChar mark : marks) {
        open += mark == '?' ? 1 : mark == ':' ? -1 : 0;
        if (open < 0)
            return "an else without its question";
    }
    return open ? QString("a question without its else") : QString();
}

QString labelled(const QString &device, const QString &value, const QString &what)
{
    return device + ", " + value + ": " + what;
}

void addDevices()
{
    QTest::addColumn<QString>("device");
    for (const QString &device : Devices::Names)
        QTest::newRow(qPrintable(device)) << device;
}

} // namespace

/** The seven factory mappers: that they cover their layouts, hold what is settled, and follow one plan. */
class TestFactoryMappers final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void filesHaveTheForm_data() { addDevices(); }
    void filesHaveTheForm();
    void coversTheLayout_data();
    void coversTheLayout();

    void rowsStandAsGiven_data();
    void rowsStandAsGiven();
    void proDrivesTheLights();

    void verbsAreThoseOfTheList();
    void actionsAreSound_data() { addDevices(); }
    void actionsAreSound();
    void ledsEndInAColour_data() { addDevices(); }
    void ledsEndInAColour();
    void coloursAreInThePalette_data() { addDevices(); }
    void coloursAreInThePalette();
};

void TestFactoryMappers::initTestCase()
{
    Q_INIT_RESOURCE(icons);
}

void TestFactoryMappers::filesHaveTheForm()
{
    QFETCH(const QString, device);
    const QString text = QString::fromUtf8(bytesOf(Mappings + device + " mapping.xml"));
    QStringList lines = text.split('\n');
    QCOMPARE(lines.takeFirst(), QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
    const QString identifier = read(device + ".xml").documentElement().attribute("name");
    QVERIFY(!identifier.isEmpty());
    const QRegularExpression head(
        "^<mapper device=\"" + identifier
        + "\" author=\"Zarvex\" version=\"8\\d\\d\" date=\"\\d{4}-\\d\\d-\\d\\d\">$");
    QVERIFY2(head.match(lines.first()).hasMatch(), qPrintable(lines.first()));
    lines.removeFirst();
    QCOMPARE(lines.takeLast(), QString());
    QCOMPARE(lines.takeLast(), QString("</mapper>"));

    // Quotes of a script are entities, but for the row that is given with plain ones.
    const QRegularExpression row("^\t<map value=\"[A-Z0-9_.]+\" action=\"([^\"<>'&]|&apos;|&amp;)+\"/>$");
    const QRegularExpression given("^\t<map value=\"LED_1\\.1\" ");
    for (const QString &line : qAsConst(lines)) {
        const bool isExcepted = device == "Novation Launchpad" && given.match(line).hasMatch();
        QVERIFY2(isExcepted || row.match(line).hasMatch(), qPrintable(line));
    }
    QCOMPARE(rowsOf(device).size(), lines.size());
}

void TestFactoryMappers::coversTheLayout_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("rows");
    const auto row = [](const char *device, int rows) { QTest::newRow(device) << device << rows; };
    // SHIFT, 64 pads with LEDs, 14 of 16 buttons, one button's LED, nine faders
    row("AKAI APC Mini", 1 + 128 + 14 + 1 + 9);
    // 64 pads and 16 band keys with LEDs, and ONEXIT
    row("Novation Launchpad", 128 + 32 + 1);
    row("Novation Launchpad S", 128 + 32);
    row("Novation Launchpad Mini", 128 + 32);
    row("Novation Launchpad MKII", 160); // a LED row for every button
    // 64 pads and 12 band keys with LEDs, and 36 controls without a place
    row("Novation Launchpad Mini MK3", 128 + 24 + 36);
    row("Novation Launchpad PRO", 1191);
}

/** One row for every key and every LED, but for what is left out on purpose; and no row for anything else. */
void TestFactoryMappers::coversTheLayout()
{
    QFETCH(const QString, device);
    QMap<QString, int> times;
    for (const Row &row : rowsOf(device))
        ++times[row.value];
    QTEST(rowsOf(device).size(), "rows");
    const QSet<QString> leftOut = leftOutOf(device);
    const QSet<QString> names = namesOf(device);
    QVERIFY(names.contains(leftOut));
    for (const QString &name : names)
        QVERIFY2(times.take(name) == (leftOut.contains(name) ? 0 : 1), qPrintable(name));

    if (device == "Novation Launchpad PRO") {
        QCOMPARE(times.take("LED_USER1_PAD_4_4"), 2);
        for (auto other = times.cbegin(); other != times.cend(); ++other)
            QVERIFY2(other.value() == 1, qPrintable(other.key()));
    } else {
        QCOMPARE(times.keys(), device == "Novation Launchpad" ? QStringList{"ONEXIT"} : QStringList());
    }
}

void TestFactoryMappers::rowsStandAsGiven_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("action");
    QTest::newRow("key") << "X1"
                         << "var &apos;$padmode&apos; 0 ? sampler_volume +5% : deck left slicer "
                            "&apos;length&apos; -1 &amp; deck right slicer &apos;length&apos; -1";
    QTest::newRow("LED") << "LED_1.1"
                         << "var &apos;$padmode&apos; 0 ? get_sample_color 1 : var &apos;$padmode&apos; 1 ? "
                            "deck left hot_cue 1 ? get_constant 'red' : get_constant '#550000' : nothing";
    QTest::newRow("row without an element") << "ONEXIT"
                                            << "set &apos;$flashled&apos; 0";
}

void TestFactoryMappers::rowsStandAsGiven()
{
    QFETCH(const QString, value);
    QFETCH(QString, action);
    const QString text = QString::fromUtf8(bytesOf(Mappings + "Novation Launchpad mapping.xml"));
    const QString row = QString("\n\t<map value=\"%1\" action=\"%2\"/>\n").arg(value, action);
    QCOMPARE(text.count(row), 1);
    action.replace("&apos;", "'").replace("&amp;", "&");
    QCOMPARE(actionsOf("Novation Launchpad").value(value), action);
}

void TestFactoryMappers::proDrivesTheLights()
{
    QMap<QString, QString> driving;
    for (const Row &row : rowsOf("Novation Launchpad PRO")) {
        if (row.action.contains("os2l_cmd"))
            driving.insert(row.value, row.action);
    }
    QCOMPARE(driving.size(), 128);
    for (int pad = 0; pad < 64; ++pad) {
        const QString name = QString("USER2_PAD_%1_%2").arg(pad / 8 + 1).arg(pad % 8 + 1);
        const QString command = QString("os2l_cmd %1").arg(pad + 1);
        QCOMPARE(driving.value(name), command);
        QVERIFY2(driving.value("LED_" + name).startsWith(command + " ? "), qPrintable(name));
    }
    // Nowhere else does a mapper speak to the lights: that is for the export to write.
    int speaking = 0;
    for (const QString &device : Devices::Names) {
        for (const Row &row : rowsOf(device))
            speaking += row.action.contains("os2l");
    }
    QCOMPARE(speaking, 128);
}

/** The list is no wish list: each of its verbs is in use. */
void TestFactoryMappers::verbsAreThoseOfTheList()
{
    QSet<QString> used;
    for (const QString &device : Devices::Names) {
        for (const Row &row : rowsOf(device)) {
            for (const QString &part : partsOf(row.action)) {
                for (const QString &verb : verbsOf(part)) {
                    QVERIFY2(Verbs.contains(verb), qPrintable(labelled(device, row.value, verb)));
                    used += verb;
                }
            }
        }
    }
    QCOMPARE(used.size(), Verbs.size());
}

void TestFactoryMappers::actionsAreSound()
{
    QFETCH(const QString, device);
    for (const Row &row : rowsOf(device)) {
        const QString fault = faultOf(row.action);
        QVERIFY2(fault.isEmpty(), qPrintable(labelled(device, row.value, fault + ": " + row.action)));
    }
}

void TestFactoryMappers::ledsEndInAColour()
{
    QFETCH(const QString, device);
    int leds = 0;
    for (const Row &row : rowsOf(device)) {
        if (!isLed(row.value) || isLevel(row.value) || isGiven(device, row.value))
            continue;
        ++leds;
        QString marks;
        const QStringList parts = partsOf(row.action, &marks);
        const QString verb = verbsOf(parts.last()).first();
        const QByteArray label = labelled(device, row.value, row.action).toUtf8();
        // VirtualDJ has a colour ready for a pad of the deck's page; its state is in that.
        const bool isReady = verb == "pad_button_color";
        QVERIFY2(isReady || verb == "color" || verb == "off", label);
        // It asks first: the LED shows a state.
        QVERIFY2(isReady || marks.startsWith('?'), label);
        // A query answers with its first statement, so a chain would be lost on a LED.
        QVERIFY2(!marks.contains('&'), label);
    }
    QVERIFY(leds > 0);
}

/** A device with a palette is asked only for colours that it has. */
void TestFactoryMappers::coloursAreInThePalette()
{
    QFETCH(const QString, device);
    const QDomDocument document = read(device + ".xml");
    const QDomElement layout = document.documentElement();
    const bool isRgb = layout.attribute("fullrgb") == "true";
    const QStringList palette = layout.attribute("colors").split(',');
    const QRegularExpression rgb("^#[0-9A-F]{6}$");
    const QRegularExpression color("^color '([^']+)'$");
    int colours = 0;
    for (const Row &row : rowsOf(device)) {
        for (const QString &part : partsOf(row.action)) {
            if (verbsOf(part).first() != "color")
                continue;
            ++colours;
            const QString name = color.match(part).captured(1);
            QVERIFY2(isRgb ? rgb.match(name).hasMatch() : palette.contains(name),
                     qPrintable(labelled(device, row.value, part)));
        }
    }
    QVERIFY(colours > 0);
}

QTEST_GUILESS_MAIN(TestFactoryMappers)
#include "test_factorymappers.moc"
