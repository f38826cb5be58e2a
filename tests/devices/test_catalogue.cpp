#include "devices/catalogue.h"
#include "devices/device.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/texts.h"

#include <QDirIterator>
#include <QDomDocument>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString Mappings = ":/icons/Mappings";
QString shown(const Record &record)
{
    QStringList entries;
    for (auto entry = record.cbegin(); entry != record.cend(); ++entry)
        entries += entry.key() + "=" + entry.value();
    return entries.join(" | ");
}

Record attributesOf(const QDomElement &element)
{
    Record record;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QDomAttr attribute = attributes.item(i).toAttr();
        record.insert(attribute.name(), attribute.value());
    }
    return record;
}

/** Parses a file of the catalogue; false where it cannot be read or is not well-formed. */
bool parse(const QString &fileName, QDomDocument &document)
{
    return document.setContent(bytesOf(Mappings + "/" + fileName));
}

/** A layout's body, told by its bands. */
class Body final
{
public:
    QStringList elements() const { return m_elements; }

    /** Controls without place: "ignore" or "empty". */
    Body &named(const QString &tag, const QStringList &names)
    {
        for (const QString &name : names)
            add(tag, {{"name", name}});
        return *this;
    }

    /** The 64 pads; %1 in the rule is the row of the device, %2 its column. */
    Body &grid(const QString &rule)
    {
        for (int row = 1; row <= 8; ++row) {
            for (int column = 1; column <= 8; ++column)
                add("pad",
                    place({{"name", rule.arg(row).arg(column)}, {"colorled", "LED_"}}, row + 1, column + 1));
        }
        return *this;
    }

    /** Keys along one side, from the band's first cell on. */
    Body &band(const QString &tag, const QString &led, const QString &side, const QStringList &names)
    {
        for (int i = 0; i < names.size(); ++i) {
            const Record key = {{"name", names.at(i)}, {led, "LED_"}, {"group", side}};
            if (side == "top" || side == "bottom")
                add(tag, place(key, side == "top" ? 0 : 11, 2 + i));
            else
                add(tag, place(key, 2 + i, side == "left" ? 0 : 11));
        }
        return *this;
    }

    Body &sliders(const QStringList &names)
    {
        for (int i = 0; i < names.size(); ++i)
            add("slider", place({{"name", names.at(i)}}, 10, i));
        return *this;
    }

    /** Puts one element into a place of its own. */
    Body &moved(const QString &name, int row, int column)
    {
        for (QString &element : m_elements) {
            if (element.contains(" name=" + name + " "))
                element = shown("pad", place({{"name", name}, {"colorled", "LED_"}}, row, column));
        }
        return *this;
    }

    static QString shown(const QString &tag, const Record &attributes)
    {
        return tag + ": " + ::shown(attributes) + " ";
    }

private:
    static Record place(Record attributes, int row, int column)
    {
        attributes.insert("row", QString::number(row));
        attributes.insert("col", QString::number(column));
        return attributes;
    }

    void add(const QString &tag, const Record &attributes) { m_elements += shown(tag, attributes); }

    QStringList m_elements;
};

/** "NAME1" to "NAME8", for a rule "NAME%1". */
QStringList numbered(const QString &rule, int count = 8)
{
    QStringList names;
    for (int i = 1; i <= count; ++i)
        names += rule.arg(i);
    return names;
}

QStringList classicBody()
{
    // "2.1" lies on the cell of "1.1".
    return Body()
        .grid("%1.%2")
        .moved("2.1", 2, 2)
        .band("pad", "colorled", "right", numbered("Y%1"))
        .band("pad", "colorled", "top", numbered("X%1"))
        .elements();
}

/** The root attributes of the layouts, in the order of the combo box. */
QList<Record> layoutRoots()
{
    const QStringList keys = {"top", "left", "bottom", "right", "faders"};
    const QList<QStringList> numbers = {{"0", "0", "8", "8", "8"}, {"4", "0", "0", "8", "0"},
                                        {"8", "0", "0", "8", "0"}, {"8", "0", "0", "8", "0"},
                                        {"4", "8", "8", "8", "0"}, {"8", "0", "0", "8", "0"},
                                        {"8", "0", "0", "8", "0"}};
    QList<Record> roots;
    for (int i = 0; i < numbers.size(); ++i) {
        Record root = {{"name", Devices::Identifiers.at(i)}, {"description", Devices::Names.at(i)}};
        for (int j = 0; j < keys.size(); ++j)
            root.insert(keys.at(j), numbers.at(i).at(j));
        const QStringList palette = Devices::Palettes.at(i);
        root.insert("fullrgb", palette.isEmpty() ? "true" : "false");
        if (!palette.isEmpty()) {
            root.insert("colors", palette.join(','));
            root.insert("coloroff", QString::number(Devices::OffColors.at(i)));
            root.insert("coloron", QString::number(Devices::OnColors.at(i)));
        }
        roots += root;
    }
    roots[Devices::Akai]["description"] = "Akai APC Mini";
    return roots;
}

QList<Record> devicesOf(const QList<CatalogueEntry> &entries)
{
    QList<Record> devices;
    for (const CatalogueEntry &entry : entries)
        devices += entry.device;
    return devices;
}

QStringList valuesOf(const QList<Record> &records, const QString &key)
{
    QStringList values;
    for (const Record &record : records)
        values += record.value(key);
    return values;
}

} // namespace

/** The catalogue of controllers: the shipped one, and folders with anything in them. */
class TestCatalogue final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void resourceTreeHoldsPicturesAndCatalogue();
    void readsTheCatalogue();
    void layoutRootsFollowTheTable();
    void layoutBodiesFollowTheRules_data();
    void layoutBodiesFollowTheRules();
    void tellsPalettes_data();
    void tellsPalettes();
    void readsLayouts_data();
    void readsLayouts();
    void findsNoDevices_data();
    void findsNoDevices();
    void ordersFilesByNameWithoutCase();
    void skipsWhatIsNoFile();
#ifdef Q_OS_UNIX
    void skipsFilesThatCannotBeOpened();
#endif
};

void TestCatalogue::initTestCase()
{
    Q_INIT_RESOURCE(icons);
}

/** A device of all colours has no palette at all, not an empty one. */
void TestCatalogue::layoutRootsFollowTheTable()
{
    for (int i = 0; i < Devices::Names.size(); ++i) {
        QDomDocument document;
        QVERIFY(parse(Devices::Names.at(i) + ".xml", document));
        QCOMPARE(document.documentElement().tagName(), QString("layout"));
        QCOMPARE(shown(attributesOf(document.documentElement())), shown(layoutRoots().at(i)));
        QCOMPARE(document.firstChild().toProcessingInstruction().data(),
                 QString("version='1.0' encoding='UTF-8'"));
    }
}

void TestCatalogue::resourceTreeHoldsPicturesAndCatalogue()
{
    QStringList expected;
    for (const QString picture : {"arrowdown", "checkbox", "quelvarlogo", "zarvexlogo"}) {
        expected += ":/icons/Images/" + picture + ".png";
        QVERIFY2(!QImage(expected.last()).isNull(), qPrintable(picture));
    }
    for (const QString &name : Devices::Names)
        expected << Mappings + "/" + name + ".xml" << Mappings + "/" + name + " mapping.xml";
    expected.sort();
    QStringList found;
    QDirIterator files(":/icons", QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext())
        found += files.next();
    found.sort();
    QCOMPARE(found, expected);
}

void TestCatalogue::readsTheCatalogue()
{
    const QList<CatalogueEntry> entries = readCatalogue(Mappings);
    QCOMPARE(valuesOf(devicesOf(entries), "name"), Devices::Names);
    const QList<Record> roots = layoutRoots();
    for (int i = 0; i < entries.size(); ++i) {
        const Record &root = roots.at(i);
        const QString name = Devices::Names.at(i);
        Record expected = {{"device", root.value("name")},
                           {"name", name},
                           {"path", Mappings + "/" + name + ".xml"},
                           {"off", root.value("coloroff")},
                           {"on", root.value("coloron")}};
        for (const char *key : {"fullrgb", "colors", "top", "left", "right", "bottom", "faders"})
            expected.insert(key, root.value(key));
        QCOMPARE(shown(entries.at(i).device), shown(expected));

        QStringList mappers;
        for (const Record &mapper : entries.at(i).mappers)
            mappers += shown(mapper);
        const QString line =
            "device=" + root.value("name") + " | name=%1 | path=" + Mappings + "/" + name + " mapping.xml";
        QCOMPARE(mappers, (QStringList{line.arg(Texts::SimpleMapper), line.arg(Texts::factoryMapper(name))}));
    }
}

void TestCatalogue::layoutBodiesFollowTheRules_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QStringList>("elements");
    QTest::newRow("AKAI APC Mini")
        << 90
        << Body()
               .named("empty", {"SHIFT"})
               .grid("ROW%1_PAD%2")
               .band("button", "led", "bottom",
                     {"UP", "DOWN", "LEFT", "RIGHT", "VOLUME", "PAN", "SEND", "DEVICE"})
               .band("button", "led", "right",
                     {"CLIP_STOP", "SOLO", "REC_ARM", "MUTE", "SELECT", "BLANK1", "BLANK2", "STOP_ALL_CLIPS"})
               .sliders(numbered("SLIDER%1"))
               .named("empty", {"SLIDER9"})
               .elements();
    QTest::newRow("Novation Launchpad") << 80 << classicBody();
    QTest::newRow("Novation Launchpad S") << 80 << classicBody();
    QTest::newRow("Novation Launchpad Mini") << 80 << classicBody();
    QTest::newRow("Novation Launchpad MKII")
        << 80
        << Body()
               .grid("PAD_%1_%2")
               .band("button", "colorled", "top", numbered("BUT_HOR_%1"))
               .band("button", "colorled", "right", numbered("BUT_VERT_%1"))
               .elements();
    QStringList faders = QStringList{"SESSION", "DRUMS", "KEYS", "USER"} + numbered("FADER_%1");
    for (const QString &fader : numbered("FADER_%1"))
        faders << fader + "_TYPE" << fader + "_COLOR";
    QTest::newRow("Novation Launchpad Mini MK3")
        << 112
        << Body()
               .grid("PAD_%1_%2")
               .band("pad", "colorled", "top", numbered("BUT_HOR_%1", 4))
               .band("pad", "colorled", "right", numbered("BUT_VERT_%1"))
               .named("ignore", faders + numbered("LED_FADER_%1"))
               .elements();
    QStringList unused;
    for (int i = 0; i < 6; ++i)
        unused += "DNC_NOTUSED_MODE";
    const QStringList modes =
        QStringList{"DNC_ABLETON_MODE",        "DNC_STANDALONE_MODE", "DNC_LED_ABLETON_MODE",
                    "DNC_LED_STANDALONE_MODE", "DNC_DRUM_MODE",       "DNC_USER_MODE",
                    "DNC_VISUAL_MODE",         "DNC_FADER_MODE"}
        + unused + QStringList{"DNC_SAMFADER_MODE",     "DNC_SAM2FADER_MODE", "DNC_NOTUSED_MODE",
                               "DNC_NOTUSED_MODE",      "DNC_LED_DRUM_MODE",  "DNC_LED_USER_MODE",
                               "DNC_LED_VISUAL_MODE",   "DNC_LED_FADER_MODE", "DNC_LED_SAMFADER_MODE",
                               "DNC_LED_SAM2FADER_MODE"};
    QTest::newRow("Novation Launchpad PRO")
        << 116
        << Body()
               .named("ignore", modes)
               .grid("PAD_%1_%2")
               .band("pad", "colorled", "top", {"TOP_UP", "TOP_DOWN", "TOP_LEFT", "TOP_RIGHT"})
               .band("pad", "colorled", "bottom",
                     {"BOTTOM_RECORD_ARM", "BOTTOM_TRACK_SELECT", "BOTTOM_MUTE", "BOTTOM_SOLO",
                      "BOTTOM_VOLUME", "BOTTOM_PAN", "BOTTOM_SENDS", "BOTTOM_STOP_CLIP"})
               .band("pad", "colorled", "left",
                     {"LEFT_SHIFT", "LEFT_CLICK", "LEFT_UNDO", "LEFT_DELETE", "LEFT_QUANTIZE",
                      "LEFT_DUPLICATE", "LEFT_DOUBLE", "LEFT_CIRCLE"})
               .band("pad", "colorled", "right", numbered("RIGHT_%1"))
               .elements();
}

void TestCatalogue::layoutBodiesFollowTheRules()
{
    QFETCH(const int, size);
    QFETCH(const QStringList, elements);
    QDomDocument document;
    QVERIFY(parse(QString(QTest::currentDataTag()) + ".xml", document));
    QStringList found;
    QDomElement element = document.documentElement().firstChildElement();
    for (; !element.isNull(); element = element.nextSiblingElement()) {
        found += Body::shown(element.tagName(), attributesOf(element));
        QVERIFY2(!element.hasChildNodes(), "The list is flat.");
    }
    QCOMPARE(found, elements);
    QCOMPARE(found.size(), size);
}

void TestCatalogue::tellsPalettes_data()
{
    QTest::addColumn<Record>("device");
    QTest::addColumn<QStringList>("palette");
    const auto colored = [](const char *colors) { return Record{{"device", "BOX"}, {"colors", colors}}; };
    QTest::newRow("words and digits") << colored("black,#00FF00") << QStringList{"black", "#00FF00"};
    QTest::newRow("one colour") << colored("red") << QStringList{"red"};
    QTest::newRow("empty parts are kept") << colored(",red,,blue,") << QStringList{"", "red", "", "blue", ""};
    QTest::newRow("blanks are kept") << colored(" red, blue ") << QStringList{" red", " blue "};
    QTest::newRow("other signs do not separate")
        << colored("red;blue green") << QStringList{"red;blue green"};
    QTest::newRow("no colours are one empty part") << colored("") << QStringList{""};
    QTest::newRow("attribute missing") << Record{{"device", "BOX"}} << QStringList{""};
    QTest::newRow("no device") << Record() << QStringList();
}

void TestCatalogue::tellsPalettes()
{
    QFETCH(const Record, device);
    QFETCH(const QStringList, palette);
    QCOMPARE(Device::palette(device), palette);
}

void TestCatalogue::readsLayouts_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("devices");
    const auto row = [](const char *name, const QString &file, const QByteArray &content,
                        const QStringList &devices) { QTest::newRow(name) << file << content << devices; };
    // Base name, bottom, colors and name; and nothing else.
    const QString noMore = "bottom=%2 | colors=%3 | device=%4 | faders= | fullrgb= | left= | name=%1 | "
                           "off= | on= | path=%1.xml | right= | top=";
    const QString box = noMore.arg("Box", "", "", "BOX");
    const QStringList two = {noMore.arg("Box", "", "", "ONE"), noMore.arg("Box", "", "", "TWO")};
    row("a layout without attributes", "Box.xml", "<layout/>", {noMore.arg("Box", "", "", "")});
    row("some attributes missing", "Box.xml", "<layout name=\"BOX\" colors=\"red,blue\" bottom=\"3\"/>",
        {noMore.arg("Box", "3", "red,blue", "BOX")});
    row("all attributes, and one that nobody knows", "Box.xml",
        "<layout name=\"BOX\" description=\"A box\" fullrgb=\"maybe\" colors=\"a,,b\" coloroff=\"99\" "
        "coloron=\"-1\" top=\"1\" left=\"2\" bottom=\"3\" right=\"4\" faders=\"5\" weight=\"6\"/>",
        {"bottom=3 | colors=a,,b | device=BOX | faders=5 | fullrgb=maybe | left=2 | name=Box | "
         "off=99 | on=-1 | path=Box.xml | right=4 | top=1"});
    row("two layouts in one file", "Box.xml",
        "<layouts><layout name=\"ONE\"/><pad name=\"A\"/><layout name=\"TWO\"/></layouts>", two);
    row("a layout in a layout", "Box.xml", "<layout name=\"ONE\"><pad><layout name=\"TWO\"/></pad></layout>",
        two);
    row("a layout deep in a foreign file", "Box.xml", "<a><b><c><layout name=\"BOX\"/></c></b></a>", {box});
    row("a layout in a mapper's file", "Box mapping.xml",
        "<mapper device=\"BOX\"><layout name=\"ODD\"/></mapper>", {noMore.arg("Box mapping", "", "", "ODD")});
    row("the name ends at the first full stop", "Box.new.xml", "<layout name=\"BOX\"/>", {box});
    row("the ending in capitals", "Box.XML", "<layout name=\"BOX\"/>", {box});
    row("letters beyond ASCII", QString::fromUtf8("Größe.xml"), "<layout name=\"\xC3\x9C\"/>",
        {noMore.arg(QString::fromUtf8("Größe"), "", "", QString::fromUtf8("Ü"))});
    row("byte order mark", "Box.xml", "\xEF\xBB\xBF<layout name=\"BOX\"/>", {box});
    row("Latin-1", "Box.xml", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><layout name=\"\xDC\"/>",
        {noMore.arg("Box", "", "", QString::fromUtf8("Ü"))});
    row("prefixes in the attributes of a layout", "Box.xml", "<layout name=\"BOX\" x:name=\"OTHER\"/>",
        {box});
    row("entities in an attribute", "Box.xml", "<layout name=\"R&amp;B &lt;1&gt;\"/>",
        {noMore.arg("Box", "", "", "R&B <1>")});
}

void TestCatalogue::readsLayouts()
{
    QFETCH(const QString, file);
    QFETCH(const QByteArray, content);
    QFETCH(const QStringList, devices);
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath(file), content));
    QStringList found;
    for (const CatalogueEntry &entry : readCatalogue(folder.path())) {
        found += shown(entry.device).replace(folder.path() + "/", "");
        for (const Record &mapper : entry.mappers) // beside the layout, whether it exists or not
            QCOMPARE(mapper.value("path"), folder.filePath(entry.device.value("name") + " mapping.xml"));
    }
    QCOMPARE(found, devices);
}

void TestCatalogue::findsNoDevices_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("file");
    const auto row = [](const char *name, const QByteArray &content, const char *file = "Box.xml") {
        QTest::newRow(name) << content << file;
    };
    const QByteArray layout = "<layout name=\"BOX\" top=\"8\"/>";
    row("empty file", "");
    row("plain text", "layout name=BOX");
    row("bytes of zero", QByteArray(1000, '\0'));
    row("a factory mapper", "<mapper device=\"BOX\"><map value=\"A\" action=\"b\"/></mapper>",
        "Box mapping.xml");
    row("another spelling", "<Layout name=\"BOX\"/>");
    row("a prefix before the element's name", "<x:layout xmlns:x=\"urn:x\" name=\"BOX\"/>");
    row("a layout in a comment", "<a><!-- " + layout + " --></a>");
    row("a layout as text", "<a><![CDATA[" + layout + "]]></a>");
    row("not closed", "<layout name=\"BOX\"><pad name=\"A\"/>");
    row("cut off in an attribute", "<layout name=\"BO");
    row("not well-formed behind the layout", "<a>" + layout + "<b></a>");
    row("a second root behind the layout", layout + "<b/>");
    row("text behind the layout", layout + "and so on");
    row("a raw ampersand", "<layout name=\"R&B\"/>");
    row("a layout under another ending", layout, "Box.txt");
    row("a layout with more behind the ending", layout, "Box.xml.bak");
    row("a hidden layout", layout, ".xml");
}

void TestCatalogue::findsNoDevices()
{
    QFETCH(const QString, file);
    QFETCH(const QByteArray, content);
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath(file), content));
    QCOMPARE(readCatalogue(folder.path()).size(), 0);

    // And it does not hide what stands beside it.
    QVERIFY(writeFile(folder.filePath("A good one.xml"), "<layout name=\"FIRST\"/>"));
    QVERIFY(writeFile(folder.filePath("Zoo.xml"), "<layout name=\"LAST\"/>"));
    QCOMPARE(valuesOf(devicesOf(readCatalogue(folder.path())), "device"), (QStringList{"FIRST", "LAST"}));
}

void TestCatalogue::ordersFilesByNameWithoutCase()
{
    const QTemporaryDir folder;
    for (const QString name : {"delta", "Charlie", "bravo", "Alpha", "alpha two"})
        QVERIFY(writeFile(folder.filePath(name + ".xml"), "<layout/>"));
    // A blank comes before a full stop.
    QCOMPARE(valuesOf(devicesOf(readCatalogue(folder.path())), "name"),
             (QStringList{"alpha two", "Alpha", "bravo", "Charlie", "delta"}));
}

void TestCatalogue::skipsWhatIsNoFile()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("x.xml"));
    QVERIFY(writeFile(folder.filePath("x.xml/inner.xml"), "<layout name=\"INNER\"/>"));
    QVERIFY(QFile::link(folder.filePath("missing"), folder.filePath("link.xml")));
    QCOMPARE(readCatalogue(folder.path()).size(), 0);

    QCOMPARE(readCatalogue(folder.filePath("missing")).size(), 0);
    QVERIFY(writeFile(folder.filePath("file"), "<layout/>"));
    QCOMPARE(readCatalogue(folder.filePath("file")).size(), 0);
}

#ifdef Q_OS_UNIX // Windows has no such modes of files
void TestCatalogue::skipsFilesThatCannotBeOpened()
{
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("A.xml"), "<layout name=\"A\"/>"));
    QVERIFY(writeFile(folder.filePath("B.xml"), "<layout name=\"B\"/>"));
    QVERIFY(QFile::setPermissions(folder.filePath("A.xml"), {}));
    // The system's administrator opens it all the same.
    const bool isOpen = QFile(folder.filePath("A.xml")).open(QIODevice::ReadOnly);
    QCOMPARE(valuesOf(devicesOf(readCatalogue(folder.path())), "device"),
             isOpen ? (QStringList{"A", "B"}) : QStringList{"B"});
}
#endif

QTEST_GUILESS_MAIN(TestCatalogue)
#include "test_catalogue.moc"
