#include "devices/catalogue.h"
#include "devices/device.h"
#include "support/devices.h"
#include "support/files.h"

#include <QDirIterator>
#include <QDomDocument>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString Mappings = ":/icons/Mappings";
const QString ClassicPalette = "#000000,#550000,#AA0000,#FF0000,#005500,#00AA00,#00FF00,#555500,"
                               "#AA5500,#FF5500,#55AA00,#AAAA00,#FFAA00,#55FF00,#AAFF00,#FFFF00";

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

/** A layout's body as the makers of the controllers would tell it over the phone. */
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

/** The root attributes of a layout, the file's base name as "file". */
QList<Record> layoutRoots()
{
    const auto root = [](const char *file, const char *name, const char *description, const char *top,
                         const char *left, const char *bottom, const char *right, const char *faders) {
        return Record{{"file", file},   {"name", name},    {"description", description},
                      {"top", top},     {"left", left},    {"bottom", bottom},
                      {"right", right}, {"faders", faders}};
    };
    const auto palette = [](Record record, const QString &colors, const char *off, const char *on) {
        record.insert("fullrgb", "false");
        record.insert("colors", colors);
        record.insert("coloroff", off);
        record.insert("coloron", on);
        return record;
    };
    const auto rgb = [](Record record) {
        record.insert("fullrgb", "true");
        return record;
    };
    // In the order of the combo box.
    return {
        palette(root("AKAI APC Mini", "APCMINI", "Akai APC Mini", "0", "0", "8", "8", "8"),
                "black,green,red,yellow", "3", "1"),
        rgb(root("Novation Launchpad Mini MK3", "NLMINIMK3", "Novation Launchpad Mini MK3", "4", "0", "0",
                 "8", "0")),
        palette(root("Novation Launchpad Mini", "LAUNCHPADMINI", "Novation Launchpad Mini", "8", "0", "0",
                     "8", "0"),
                ClassicPalette, "0", "3"),
        rgb(root("Novation Launchpad MKII", "LAUNCHPAD2", "Novation Launchpad MKII", "8", "0", "0", "8",
                 "0")),
        rgb(root("Novation Launchpad PRO", "LAUNCHPADPRO", "Novation Launchpad PRO", "4", "8", "8", "8",
                 "0")),
        palette(root("Novation Launchpad S", "LAUNCHPADS", "Novation Launchpad S", "8", "0", "0", "8", "0"),
                ClassicPalette, "0", "3"),
        palette(root("Novation Launchpad", "LAUNCHPAD", "Novation Launchpad", "8", "0", "0", "8", "0"),
                ClassicPalette, "0", "3"),
    };
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
    void picturesCanBeShown_data();
    void picturesCanBeShown();
    void listsDevicesInOrder();
    void readsDevices_data();
    void readsDevices();
    void offersTwoMappersForEachDevice();
    void layoutRootsFollowTheTable_data();
    void layoutRootsFollowTheTable();
    void layoutBodiesFollowTheRules_data();
    void layoutBodiesFollowTheRules();
    void classicLayoutsAreTheSame();
    void factoryMappersBelongToTheirLayouts_data();
    void factoryMappersBelongToTheirLayouts();

    void tellsPalettes_data();
    void tellsPalettes();
    void readsLayouts_data();
    void readsLayouts();
    void readsLayoutsInMappersBesideTheirLayouts();
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

void TestCatalogue::resourceTreeHoldsPicturesAndCatalogue()
{
    QStringList expected = {":/icons/Images/arrowdown.png", ":/icons/Images/checkbox.png",
                            ":/icons/Images/quelvarlogo.png", ":/icons/Images/zarvexlogo.png"};
    for (const Record &root : layoutRoots()) {
        expected += Mappings + "/" + root.value("file") + ".xml";
        expected += Mappings + "/" + root.value("file") + " mapping.xml";
    }
    expected.sort();

    QStringList found;
    QDirIterator files(":/icons", QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext())
        found += files.next();
    found.sort();
    QCOMPARE(found.size(), 4 + 2 * Devices::Names.size());
    QCOMPARE(found, expected);
}

void TestCatalogue::picturesCanBeShown_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("arrow of the combo boxes") << "arrowdown.png";
    QTest::newRow("tick of the tables") << "checkbox.png";
    QTest::newRow("first logo") << "quelvarlogo.png";
    QTest::newRow("second logo") << "zarvexlogo.png";
}

void TestCatalogue::picturesCanBeShown()
{
    QFETCH(const QString, name);
    QVERIFY(!QImage(":/icons/Images/" + name).isNull());
}

void TestCatalogue::listsDevicesInOrder()
{
    QCOMPARE(valuesOf(devicesOf(readCatalogue(Mappings)), "name"), Devices::Names);
}

void TestCatalogue::readsDevices_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<Record>("root");

    const QList<Record> roots = layoutRoots();
    for (int i = 0; i < roots.size(); ++i)
        QTest::newRow(qPrintable(roots.at(i).value("file"))) << i << roots.at(i);
}

void TestCatalogue::readsDevices()
{
    QFETCH(const int, position);
    QFETCH(const Record, root);

    const Record expected = {
        {"device", root.value("name")},
        {"name", root.value("file")},
        {"path", Mappings + "/" + root.value("file") + ".xml"},
        {"fullrgb", root.value("fullrgb")},
        {"colors", root.value("colors")},
        {"off", root.value("coloroff")},
        {"on", root.value("coloron")},
        {"top", root.value("top")},
        {"left", root.value("left")},
        {"right", root.value("right")},
        {"bottom", root.value("bottom")},
        {"faders", root.value("faders")},
    };
    const QList<CatalogueEntry> entries = readCatalogue(Mappings);
    QVERIFY(position < entries.size());
    QCOMPARE(shown(entries.at(position).device), shown(expected));
    QVERIFY2(QFile::exists(expected.value("path")), "There is no such layout.");
}

void TestCatalogue::offersTwoMappersForEachDevice()
{
    QStringList found;
    for (const CatalogueEntry &entry : readCatalogue(Mappings)) {
        QCOMPARE(entry.mappers.size(), 2);
        for (const Record &mapper : entry.mappers) {
            QVERIFY(QFile::exists(mapper.value("path")));
            found += shown(mapper);
        }
    }

    QStringList expected;
    for (const Record &root : layoutRoots()) {
        const QString file = root.value("file");
        const QString line =
            "device=" + root.value("name") + " | name=%1 | path=" + Mappings + "/" + file + " mapping.xml";
        expected += line.arg("Simple OS2L mapping");
        expected += line.arg(file + " mapping (factory)");
    }
    QCOMPARE(found.size(), 14);
    QCOMPARE(found, expected);
}

void TestCatalogue::layoutRootsFollowTheTable_data()
{
    QTest::addColumn<Record>("root");

    for (const Record &root : layoutRoots())
        QTest::newRow(qPrintable(root.value("file"))) << root;
}

/** A device of all colours has no palette at all, not an empty one. */
void TestCatalogue::layoutRootsFollowTheTable()
{
    QFETCH(Record, root);

    QDomDocument document;
    QVERIFY(parse(root.take("file") + ".xml", document));
    QCOMPARE(document.documentElement().tagName(), QString("layout"));
    QCOMPARE(shown(attributesOf(document.documentElement())), shown(root));
    QCOMPARE(document.firstChild().toProcessingInstruction().data(),
             QString("version='1.0' encoding='UTF-8'"));
}

void TestCatalogue::layoutBodiesFollowTheRules_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("size");
    QTest::addColumn<QStringList>("elements");

    QTest::newRow("AKAI APC Mini")
        << "AKAI APC Mini" << 90
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
    QTest::newRow("Novation Launchpad") << "Novation Launchpad" << 80 << classicBody();
    QTest::newRow("Novation Launchpad S") << "Novation Launchpad S" << 80 << classicBody();
    QTest::newRow("Novation Launchpad Mini") << "Novation Launchpad Mini" << 80 << classicBody();
    QTest::newRow("Novation Launchpad MKII")
        << "Novation Launchpad MKII" << 80
        << Body()
               .grid("PAD_%1_%2")
               .band("button", "colorled", "top", numbered("BUT_HOR_%1"))
               .band("button", "colorled", "right", numbered("BUT_VERT_%1"))
               .elements();
    QStringList faders = QStringList{"SESSION", "DRUMS", "KEYS", "USER"} + numbered("FADER_%1");
    for (const QString &fader : numbered("FADER_%1"))
        faders << fader + "_TYPE" << fader + "_COLOR";
    QTest::newRow("Novation Launchpad Mini MK3")
        << "Novation Launchpad Mini MK3" << 112
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
        << "Novation Launchpad PRO" << 116
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
    QFETCH(const QString, file);
    QFETCH(const int, size);
    QFETCH(const QStringList, elements);

    QDomDocument document;
    QVERIFY(parse(file + ".xml", document));
    QStringList found;
    QDomElement element = document.documentElement().firstChildElement();
    for (; !element.isNull(); element = element.nextSiblingElement()) {
        found += Body::shown(element.tagName(), attributesOf(element));
        QVERIFY2(!element.hasChildNodes(), "The list is flat.");
    }
    for (int i = 0; i < qMin(found.size(), elements.size()); ++i)
        QCOMPARE(found.at(i), elements.at(i));
    QCOMPARE(found.size(), elements.size());
    QCOMPARE(found.size(), size);
}

void TestCatalogue::classicLayoutsAreTheSame()
{
    QStringList bodies;
    for (const QString file : {"Novation Launchpad", "Novation Launchpad S", "Novation Launchpad Mini"}) {
        const QString text = QString::fromUtf8(bytesOf(Mappings + "/" + file + ".xml"));
        bodies += text.mid(text.indexOf("<pad"));

        // The slip that all three share: nothing stands at row 3, column 2.
        QVERIFY(text.contains("name=\"1.1\" row=\"2\" col=\"2\""));
        QVERIFY(text.contains("name=\"2.1\" row=\"2\" col=\"2\""));
        QVERIFY(!text.contains("row=\"3\" col=\"2\""));
    }
    QCOMPARE(bodies.at(1), bodies.at(0));
    QCOMPARE(bodies.at(2), bodies.at(0));
}

void TestCatalogue::factoryMappersBelongToTheirLayouts_data()
{
    layoutRootsFollowTheTable_data();
}

void TestCatalogue::factoryMappersBelongToTheirLayouts()
{
    QFETCH(const Record, root);

    QDomDocument document;
    QVERIFY(parse(root.value("file") + " mapping.xml", document));
    QCOMPARE(document.documentElement().tagName(), QString("mapper"));
    QCOMPARE(document.documentElement().attribute("device"), root.value("name"));
    QCOMPARE(document.elementsByTagName("layout").size(), 0);
    const QDomNodeList maps = document.elementsByTagName("map");
    QVERIFY(!maps.isEmpty());
    for (int i = 0; i < maps.size(); ++i) {
        QVERIFY(!maps.at(i).toElement().attribute("value").isEmpty());
        QVERIFY(!maps.at(i).toElement().attribute("action").isEmpty());
    }
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

    // With the base name as %1, the attributes bottom, colors and name behind it, and nothing else.
    const QString noMore = "bottom=%2 | colors=%3 | device=%4 | faders= | fullrgb= | left= | name=%1 | "
                           "off= | on= | path=%1.xml | right= | top=";

    QTest::newRow("a layout without attributes")
        << "Box.xml" << QByteArray("<layout/>") << QStringList{noMore.arg("Box", "", "", "")};
    QTest::newRow("some attributes missing")
        << "Box.xml" << QByteArray("<layout name=\"BOX\" colors=\"red,blue\" bottom=\"3\"/>")
        << QStringList{noMore.arg("Box", "3", "red,blue", "BOX")};
    QTest::newRow("all attributes, and one that nobody knows")
        << "Box.xml"
        << QByteArray("<layout name=\"BOX\" description=\"A box\" fullrgb=\"maybe\" colors=\"a,,b\" "
                      "coloroff=\"99\" coloron=\"-1\" top=\"1\" left=\"2\" bottom=\"3\" right=\"4\" "
                      "faders=\"5\" weight=\"6\"/>")
        << QStringList{"bottom=3 | colors=a,,b | device=BOX | faders=5 | fullrgb=maybe | left=2 | name=Box | "
                       "off=99 | on=-1 | path=Box.xml | right=4 | top=1"};
    QTest::newRow("two layouts in one file")
        << "Box.xml"
        << QByteArray("<layouts><layout name=\"ONE\"/><pad name=\"A\"/><layout name=\"TWO\"/></layouts>")
        << QStringList{noMore.arg("Box", "", "", "ONE"), noMore.arg("Box", "", "", "TWO")};
    QTest::newRow("a layout in a layout")
        << "Box.xml" << QByteArray("<layout name=\"ONE\"><pad><layout name=\"TWO\"/></pad></layout>")
        << QStringList{noMore.arg("Box", "", "", "ONE"), noMore.arg("Box", "", "", "TWO")};
    QTest::newRow("a layout deep in a foreign file")
        << "Box.xml" << QByteArray("<a><b><c><layout name=\"DEEP\"/></c></b></a>")
        << QStringList{noMore.arg("Box", "", "", "DEEP")};
    QTest::newRow("a layout in a mapper's file")
        << "Box mapping.xml" << QByteArray("<mapper device=\"BOX\"><layout name=\"ODD\"/></mapper>")
        << QStringList{noMore.arg("Box mapping", "", "", "ODD")};
    QTest::newRow("the name ends at the first full stop")
        << "Box.new.xml" << QByteArray("<layout name=\"BOX\"/>")
        << QStringList{noMore.arg("Box", "", "", "BOX")};
    QTest::newRow("the ending in capitals")
        << "Box.XML" << QByteArray("<layout name=\"BOX\"/>") << QStringList{noMore.arg("Box", "", "", "BOX")};
    QTest::newRow("letters beyond ASCII")
        << QString::fromUtf8("Größe.xml")
        << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?><layout name=\"\xC3\x9C\"/>")
        << QStringList{noMore.arg(QString::fromUtf8("Größe"), "", "", QString::fromUtf8("Ü"))};
    QTest::newRow("byte order mark") << "Box.xml" << QByteArray("\xEF\xBB\xBF<layout name=\"BOX\"/>")
                                     << QStringList{noMore.arg("Box", "", "", "BOX")};
    QTest::newRow("Latin-1") << "Box.xml"
                             << QByteArray(
                                    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><layout name=\"\xDC\"/>")
                             << QStringList{noMore.arg("Box", "", "", QString::fromUtf8("Ü"))};
    QTest::newRow("prefixes in the attributes of a layout")
        << "Box.xml" << QByteArray("<layout name=\"BOX\" x:name=\"OTHER\"/>")
        << QStringList{noMore.arg("Box", "", "", "BOX")};
    QTest::newRow("entities in an attribute")
        << "Box.xml" << QByteArray("<layout name=\"R&amp;B &lt;1&gt;\"/>")
        << QStringList{noMore.arg("Box", "", "", "R&B <1>")};
}

void TestCatalogue::readsLayouts()
{
    QFETCH(const QString, file);
    QFETCH(const QByteArray, content);
    QFETCH(const QStringList, devices);

    const QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QVERIFY(writeFile(folder.filePath(file), content));
    QStringList found;
    for (const CatalogueEntry &entry : readCatalogue(folder.path())) {
        found += shown(entry.device).replace(folder.path() + "/", "");

        // Both mappers lie beside the layout, whether they exist or not.
        const Record &device = entry.device;
        const QString rest = " | path=" + folder.path() + "/" + device.value("name") + " mapping.xml";
        QCOMPARE(entry.mappers.size(), 2);
        QCOMPARE(shown(entry.mappers.at(0)),
                 "device=" + device.value("device") + " | name=Simple OS2L mapping" + rest);
        QCOMPARE(shown(entry.mappers.at(1)), "device=" + device.value("device") + " | name="
                                                 + device.value("name") + " mapping (factory)" + rest);
    }
    QCOMPARE(found, devices);
}

/** A mapper's file goes through the same reading; that it holds no layout is its own affair. */
void TestCatalogue::readsLayoutsInMappersBesideTheirLayouts()
{
    const QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QVERIFY(writeFile(folder.filePath("Box.xml"), "<layout name=\"BOX\"/>"));
    QVERIFY(writeFile(folder.filePath("Box mapping.xml"), "<a><mapper/><layout name=\"SECOND\"/></a>"));
    const QList<Record> devices = devicesOf(readCatalogue(folder.path()));
    QCOMPARE(valuesOf(devices, "device"), (QStringList{"SECOND", "BOX"}));
    QCOMPARE(valuesOf(devices, "name"), (QStringList{"Box mapping", "Box"}));
}

void TestCatalogue::findsNoDevices_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");

    const QByteArray layout = "<layout name=\"BOX\" top=\"8\"/>";

    QTest::newRow("empty file") << "Box.xml" << QByteArray();
    QTest::newRow("blanks") << "Box.xml" << QByteArray("  \n\n");
    QTest::newRow("plain text") << "Box.xml" << QByteArray("layout name=BOX");
    QTest::newRow("bytes of zero") << "Box.xml" << QByteArray(1000, '\0');
    QTest::newRow("bytes of 255") << "Box.xml" << QByteArray(1000, '\xFF');
    QTest::newRow("a factory mapper")
        << "Box mapping.xml" << QByteArray("<mapper device=\"BOX\"><map value=\"A\" action=\"b\"/></mapper>");
    QTest::newRow("another spelling") << "Box.xml" << QByteArray("<Layout name=\"BOX\"/>");
    QTest::newRow("a prefix before the element's name")
        << "Box.xml" << QByteArray("<x:layout xmlns:x=\"urn:x\" name=\"BOX\"/>");
    QTest::newRow("a web page") << "Box.xml" << QByteArray("<html><body>layout</body></html>");
    QTest::newRow("a layout in a comment") << "Box.xml"
                                           << "<a><!-- " + layout + " --></a>";
    QTest::newRow("a layout as text") << "Box.xml"
                                      << "<a><![CDATA[" + layout + "]]></a>";
    QTest::newRow("not closed") << "Box.xml" << QByteArray("<layout name=\"BOX\"><pad name=\"A\"/>");
    QTest::newRow("cut off in an attribute") << "Box.xml" << QByteArray("<layout name=\"BO");
    QTest::newRow("not well-formed behind the layout") << "Box.xml"
                                                       << "<a>" + layout + "<b></a>";
    QTest::newRow("a second root behind the layout") << "Box.xml" << layout + "<b/>";
    QTest::newRow("text behind the layout") << "Box.xml" << layout + "and so on";
    QTest::newRow("a raw ampersand") << "Box.xml" << QByteArray("<layout name=\"R&B\"/>");
    QTest::newRow("a layout under another ending") << "Box.txt" << layout;
    QTest::newRow("a layout with more behind the ending") << "Box.xml.bak" << layout;
    QTest::newRow("a hidden layout") << ".xml" << layout;
}

void TestCatalogue::findsNoDevices()
{
    QFETCH(const QString, file);
    QFETCH(const QByteArray, content);

    const QTemporaryDir folder;
    QVERIFY(folder.isValid());
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
    QVERIFY(folder.isValid());
    for (const QString name : {"delta", "Charlie", "bravo", "Alpha", "alpha two"})
        QVERIFY(writeFile(folder.filePath(name + ".xml"), "<layout/>"));
    // A blank comes before a full stop.
    QCOMPARE(valuesOf(devicesOf(readCatalogue(folder.path())), "name"),
             (QStringList{"alpha two", "Alpha", "bravo", "Charlie", "delta"}));
}

void TestCatalogue::skipsWhatIsNoFile()
{
    const QTemporaryDir folder;
    QVERIFY(folder.isValid());
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
    QVERIFY(folder.isValid());
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
