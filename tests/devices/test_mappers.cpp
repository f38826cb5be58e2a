#include "devices/catalogue.h"
#include "files/readfile.h"
#include "files/xmlfile.h"
#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/processortime.h"
#include "support/texts.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QDir>
#include <QDomDocument>
#include <QRegularExpression>
#include <QTextCodec>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

/** Name and content, in the order in which the files are written. */
using Files = QList<QPair<QString, QByteArray>>;

/** What the AKAI's combo box offers without any mapper on disk. */
const QStringList BuiltIn = {Texts::SimpleMapper, Texts::factoryMapper("AKAI APC Mini")};

// Milliseconds for the window with the mappers that it finds.
#if defined(__SANITIZE_ADDRESS__) || defined(Q_OS_WIN) || !defined(__OPTIMIZE__)
constexpr qint64 LongestStart = 20000;
#else
constexpr qint64 LongestStart = 2000;
#endif

/** A mapper for a controller. */
QByteArray mapper(const QByteArray &device = "APCMINI", const QByteArray &body = {})
{
    return "<mapper device=\"" + device + "\">" + body + "</mapper>";
}

/** An AKAI mapper from its start tag on, to be closed or not. */
QByteArray opened(const QByteArray &rest)
{
    return "<mapper device=\"APCMINI\">" + rest;
}

QByteArray nested(int depth, const QByteArray &opening = "<x>", const QByteArray &closing = "</x>")
{
    return opening.repeated(depth) + closing.repeated(depth);
}

/** A text in an encoding, without a byte order mark. */
QByteArray encoded(const QString &text, const char *codec)
{
    const std::unique_ptr<QTextEncoder> encoder(
        QTextCodec::codecForName(codec)->makeEncoder(QTextCodec::IgnoreHeader));
    return encoder->fromUnicode(text);
}

QByteArray manyAttributes(int count)
{
    QByteArray element = "<map";
    for (int i = 0; i < count; ++i)
        element += " a" + QByteArray::number(i) + "=''";
    return element + "/>";
}

bool writeFiles(const QString &folder, const Files &files)
{
    for (const auto &[name, content] : files) {
        if (!writeFile(folder + "/" + name, content))
            return false;
    }
    return true;
}

QStringList offered(Workspace &space)
{
    return Workspace::itemsOf(space.find<QComboBox>("mididevices"));
}

/** A mapper in one file, and whether it is found. */
void row(const char *name, const QByteArray &content, bool isFound)
{
    QTest::newRow(name) << content << isFound;
}

/** A mapper of a body, and whether it is found. */
void bodyRow(const char *name, const QByteArray &body, bool isFound)
{
    row(name, opened(body + "</mapper>"), isFound);
}

void addEncodings()
{
    const QString text = "<?xml version=\"1.0\"?>\n" + QString(mapper()) + "\n";
    const QString withReturns = QString(text).replace("\n", "\r\n");
    const QByteArray latin = "<?xml version='1.0' encoding='ISO-8859-1'?>";
    row("UTF-8 with a byte order mark", "\xEF\xBB\xBF" + text.toUtf8(), true);
    row("UTF-8 with CR LF", withReturns.toUtf8(), true);
    row("UTF-16, low byte first, LF", "\xFF\xFE" + encoded(text, "UTF-16LE"), true);
    row("UTF-16, high byte first, LF", "\xFE\xFF" + encoded(text, "UTF-16BE"), true);
    // No carriage return is dropped on the way: each would leave half a sign behind.
    row("UTF-16, low byte first, CR LF", "\xFF\xFE" + encoded(withReturns, "UTF-16LE"), true);
    row("UTF-16, high byte first, CR LF", "\xFE\xFF" + encoded(withReturns, "UTF-16BE"), true);
    row("UTF-16 without a mark, low byte first", encoded(text, "UTF-16LE"), true);
    row("UTF-16 without a mark, high byte first", encoded(text, "UTF-16BE"), true);
    row("a mark counts for more than the declaration", "\xEF\xBB\xBF" + latin + mapper(), true);
    row("Latin-1, declared", latin + mapper("APCMINI", "<map value='\xDC'/>"), true);
    row("an encoding that nobody knows", "<?xml version='1.0' encoding='nobody-knows'?>" + mapper(), true);
    bodyRow("wrongly encoded bytes", "<map value='\xDC\xFF'/>", true);
}

void addSizes()
{
    const QByteArray rows = "<map value='A' action='b'/>";
    bodyRow("thirty thousand rows", rows.repeated(30000), true);
    bodyRow("a million rows", rows.repeated(1000000), false);
    row("100 MB of zeros", QByteArray(100 << 20, '\0'), false);
    row("4 MB of opening brackets", QByteArray(4 << 20, '<'), false);
    row("4 MB of quotes in a tag", opened("<x " + QByteArray(4000000, '"')), false);
    bodyRow("100,000 attributes in one element", manyAttributes(100000), true);
    bodyRow("a namespace at every element",
            QByteArray("<a:x xmlns:a='urn:a' xmlns='urn:b'/>").repeated(20000), true);
    bodyRow("a name of 1 MB", "<" + QByteArray(1000000, 'x') + "/>", true);
    bodyRow("an attribute of 1 MB", "<x a='" + QByteArray(1000000, 'x') + "'/>", true);
}

/** The mapper itself is the first level. */
void addDepths()
{
    bodyRow("100 deep", nested(99), true);
    bodyRow("100 deep, and an element without content", nested(99, "<x>", "<y/></x>"), true);
    bodyRow("100 deep, many times over", nested(99).repeated(50), true);
    bodyRow("101 deep", nested(100), false);
    bodyRow("101 deep, at the end only", nested(5).repeated(100) + nested(100), false);
    bodyRow("100,000 deep", nested(100000), false);
    row("100,000 deep, not closed", opened(QByteArray("<x>").repeated(100000)), false);
    row("100,000 deep, closed too often", opened(nested(100000)) + QByteArray("</x>").repeated(100000),
        false);
    row("closed before it is opened",
        QByteArray("</x>").repeated(100000) + opened(nested(100000) + "</mapper>"), false);
    bodyRow("flat, but long", nested(1).repeated(100000), true);
    bodyRow("deep behind closing tags in comments", nested(5000, "<x><!-- </x> -->"), false);
    bodyRow("deep behind closing tags in marked text", nested(5000, "<x><![CDATA[</x>]]>"), false);
    bodyRow("deep behind closing tags in instructions", nested(5000, "<x><?do </x> ?>"), false);
    bodyRow("deep behind closing tags in attributes", nested(5000, "<x a=\"&lt;/x></x>\">"), false);
    bodyRow("deep behind a slash in quotes", nested(5000, "<x a='/'>"), false);
    bodyRow("deep behind a slash and a bracket in quotes", nested(5000, "<x a='/>'>"), false);
    bodyRow("deep behind a comment that seems to end at once", "<!--> --> " + nested(5000), false);
}

void addHiddenTags()
{
    const QByteArray tags = QByteArray("<x>").repeated(500);
    bodyRow("tags in a comment", "<!--" + tags + "-->", true);
    bodyRow("tags in a comment that seems to end at once", "<!-->" + tags + "-->", true);
    bodyRow("tags in marked text", "<![CDATA[" + tags + "]]>", true);
    bodyRow("tags in an instruction", "<?do " + tags + "?>", true);
    bodyRow("brackets in double quotes", QByteArray("<x a=\"'>\"/>").repeated(500), true);
    bodyRow("brackets in single quotes", QByteArray("<x a='\">'/>").repeated(500), true);
    bodyRow("a blank before the end of an element without content", QByteArray("<x a='b' />").repeated(500),
            true);
    bodyRow("quotes in text", QByteArray("<x>it's \"</x>").repeated(500), true);
    bodyRow("a quote in a comment", "<!-- it's --><x/>", true);
}

void addDocumentTypes()
{
    QByteArray explosion = "<!DOCTYPE mapper [<!ENTITY e0 'boom'>";
    for (int i = 1; i <= 9; ++i)
        explosion += "<!ENTITY e" + QByteArray::number(i) + " '"
                     + ("&e" + QByteArray::number(i - 1) + ";").repeated(10) + "'>";
    explosion += "]>";
    row("entities that explode in text", explosion + mapper("APCMINI", "&e9;"), false);
    row("entities that explode in an attribute", explosion + mapper("APCMINI", "<x a='&e9;'/>"), false);
    row("an entity that holds itself",
        "<!DOCTYPE mapper [<!ENTITY a '&b;'><!ENTITY b '&a;'>]>" + mapper("APCMINI", "&a;"), false);
    row("an entity declared and used", "<!DOCTYPE mapper [<!ENTITY d 'APCMINI'>]>" + mapper("&d;"), false);
    row("an entity from a file",
        "<!DOCTYPE mapper [<!ENTITY d SYSTEM '/dev/zero'>]>" + mapper("APCMINI", "&d;"), false);
    row("a document type", "<!DOCTYPE mapper>" + mapper(), true);
    row("a document type from elsewhere", "<!DOCTYPE mapper SYSTEM \"mapper>.dtd\">\n" + mapper(), true);
    row("a document type in a comment", "<!-- <!DOCTYPE mapper [<!ENTITY d 'x'>]> -->" + mapper(), true);
    bodyRow("a document type in marked text", "<![CDATA[<!DOCTYPE mapper [<!ENTITY d 'x'>]>]]>", true);
    for (const char *name : {"SYSTEM \"%1\"", "SYSTEM '%1'", "PUBLIC '%1' 'a.dtd'", "PUBLIC 'a' \"%1\""}) {
        for (const char *hidden : {"><!--", "><?", "><![CDATA["}) {
            const QByteArray type = "<!DOCTYPE mapper " + QByteArray(name).replace("%1", hidden);
            const QByteArray where = QByteArray(hidden) + " in " + name;
            row("deep behind " + where, type + ">" + opened(nested(5000) + "</mapper>"), false);
            row("an entity behind " + where, type + " [<!ENTITY e 'x'>]>" + mapper("APCMINI", "<x a='&e;'/>"),
                false);
        }
    }
}

void addOddSigns()
{
    for (const char *sign : {"\xC2\x9F", "\\", "$", "'", "&", ";"})
        bodyRow(sign + QByteArray(" in the name of an attribute"), "<map val" + QByteArray(sign) + "ue='A'/>",
                false);
    for (const char *number : {"0", "00", "x0", "x0000", "65536", "x10000", "x110000", "4294967296"})
        bodyRow("U+0000 as the number " + QByteArray(number), "<map value='A&#" + QByteArray(number) + ";'/>",
                false);
    bodyRow("another number that ends in zeros", "<map value='&#x100;&#10;&#xA00;'/>", true);
    row("NUL bytes in front", QByteArray(3, '\0') + mapper(), false);
    row("NUL byte in the root", opened(QByteArray(1, '\0') + "</mapper"), false);
    bodyRow("an attribute twice", "<map value='A' value='B'/>", true);
    bodyRow("an entity that nobody declares", "<map value='&nbsp;'/>", true);
    bodyRow("a control character", "<map value='\x01'/>", true);
}

void addCuts()
{
    row("empty", "", false);
    row("a lone opening bracket", "<", false);
    row("a lone opening bracket at the end", mapper() + "<", false);
    row("cut off in a byte order mark", "\xEF\xBB", false);
    row("half a sign of UTF-16", QByteArray("\xFF\xFE<", 3), false);
    row("cut off in the declaration", "<?xml version=\"1.0\"", false);
    row("cut off in the document type", "<!DOCTYPE mapper [", false);
    for (const char *start :
         {"", "<", "<map", "<map/", "<map value='A", "<!-- so", "<![CDATA[so", "<?do", "</mapper"})
        row("cut off behind " + QByteArray(start), opened(start), false);
}

void addFaults()
{
    row("wrong end", opened("</mappers>"), false);
    bodyRow("ends crossed", "<a><b></a></b>", false);
    row("two roots", mapper() + mapper(), false);
    row("text behind the root", mapper() + "so", false);
    row("text in front of the root", "so" + mapper(), false);
    row("blank in front of the declaration", " <?xml version=\"1.0\"?>" + mapper(), false);
    row("attribute without quotes", "<mapper device=APCMINI/>", false);
    row("attribute without a value", "<mapper device='APCMINI' x/>", false);
    bodyRow("raw ampersand", "<map value='a & b'/>", false);
    bodyRow("a number that is no character", "&#xZZ;", false);
    bodyRow("a blank behind the opening bracket", "< map/>", false);
    row("plain text", "mapper device APCMINI", false);
}

} // namespace

/** The mappers that users have on disk: found, read without harm, and offered behind our own. */
class TestMappers final : public QObject
{
    Q_OBJECT

private slots:
    void finds_data();
    void finds();
    void findsNothingInAFolderThatIsNone();
    void offers_data();
    void offers();
    void offersMappersOfEachDevice();
#ifdef Q_OS_UNIX
    void offersWhatLinksLeadTo();
    void passesOverWhatIsNoFile();
    void passesOverFilesThatCannotBeOpened();
#endif
    void startsWithoutAFolder();
    void looksForMappersOnlyAtTheStart();
    void tellsPositions();
    void tellsDevices();
    void hostileMappersAreHarmless_data();
    void hostileMappersAreHarmless();
    void refusesLongFiles();
    void passesOverWhatTheStartCannotWaitFor_data();
    void passesOverWhatTheStartCannotWaitFor();
    void readsLikeAPlainDocument_data();
    void readsLikeAPlainDocument();
    void readsNothingWhereThereIsNoFile();
};

void TestMappers::finds_data()
{
    QTest::addColumn<Files>("files");
    QTest::addColumn<QStringList>("mappers");
    const auto files = [](const char *name, const Files &written, const QStringList &mappers = {}) {
        QTest::newRow(name) << written << mappers;
    };
    files("no files", {});
    files("a mapper", {{"My set.xml", mapper()}}, {"APCMINI | My set | My set.xml"});
    files("by file name without case",
          {{"delta.xml", mapper("D")},
           {"Charlie.xml", mapper("C")},
           {"alpha.xml", mapper("A")},
           {"Bravo.xml", mapper("B")}},
          {"A | alpha | alpha.xml", "B | Bravo | Bravo.xml", "C | Charlie | Charlie.xml",
           "D | delta | delta.xml"});
    files("the name ends at the first full stop", {{"my.set.xml", mapper()}}, {"APCMINI | my | my.set.xml"});
    files("the ending in capitals", {{"A.XML", mapper()}}, {"APCMINI | A | A.XML"});
    files("another ending",
          {{"A.txt", mapper()}, {"A.xml.bak", mapper()}, {"xml", mapper()}, {"Axml", mapper()}});
    files("hidden files", {{".xml", mapper()}, {".A.xml", mapper()}});
    files("letters beyond ASCII", {{QString::fromUtf8("Größe.xml"), mapper("\xC3\x9C")}},
          {QString::fromUtf8("Ü | Größe | Größe.xml")});
    files("a broken file hides no other",
          {{"A.xml", opened("")}, {"B.xml", mapper()}, {"C.xml", ""}, {"D.xml", mapper()}},
          {"APCMINI | B | B.xml", "APCMINI | D | D.xml"});

    const auto content = [&files](const char *name, const QByteArray &xml, const QStringList &devices = {}) {
        QStringList mappers = devices;
        files(name, {{"A.xml", xml}}, mappers.replaceInStrings(QRegularExpression("$"), " | A | A.xml"));
    };
    content("a controller that we do not know", mapper("OTHER"), {"OTHER"});
    content("no device", "<mapper/>", {""});
    content("the attribute in capitals", "<mapper Device='APCMINI'/>", {""});
    content("the device as it stands", mapper(" apc&amp;mini "), {" apc&mini "});
    content("several mappers in one file",
            "<a>" + mapper("ONE") + "<b>" + mapper("TWO", mapper("THREE")) + "</b></a>",
            {"ONE", "TWO", "THREE"});
    content("as VirtualDJ writes it",
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
            "<mapper author=\" device=\" device=\"&quot;A &amp; B&quot;\" version=\"850\">\r\n"
            "\t<map value=\"PLAY\" action=\"play &amp; sync\" />\r\n</mapper>\r\n",
            {"\"A & B\""});
    content("one mapper within the other, as VirtualDJ writes them",
            "<mapper device=\"ONE\"><map value=\"A\"/><mapper device=\"TWO\"/></mapper>", {"ONE", "TWO"});
    content("of an attribute told twice the last", "<mapper device=\"ONE\" device=\"TWO\"></mapper>",
            {"TWO"});
    content("an attribute of a row told twice",
            "<mapper device=\"ONE\"><map value=\"A\" action=\"b\" value=\"B\"/></mapper>", {"ONE"});
    content("a second root", "<mapper device=\"ONE\"><map value=\"A\"/></mapper><mapper device=\"TWO\"/>");
    content("another element", "<map device='APCMINI'/>");
    content("another spelling", "<Mapper device='APCMINI'/>");
    content("a prefix", "<x:mapper xmlns:x='urn:x' device='APCMINI'/>");
}

void TestMappers::finds()
{
    QFETCH(const Files, files);
    const QTemporaryDir folder;
    QVERIFY(writeFiles(folder.path(), files));
    QStringList mappers;
    for (const Record &found : findMappers(folder.path()))
        mappers += found.value("device") + " | " + found.value("name") + " | "
                   + QDir(folder.path()).relativeFilePath(found.value("path"));
    QTEST(mappers, "mappers");
}

void TestMappers::findsNothingInAFolderThatIsNone()
{
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("file"), mapper()));
    QCOMPARE(findMappers(folder.filePath("missing")).size(), 0);
    QCOMPARE(findMappers(folder.filePath("file")).size(), 0);
}

void TestMappers::offers_data()
{
    QTest::addColumn<Files>("files");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none") << Files{} << QStringList();
    QTest::newRow("by file name without case")
        << Files{{"c.xml", mapper()}, {"B.xml", mapper()}, {"a.xml", mapper()}} << QStringList{"a", "B", "c"};
    QTest::newRow("mappers of other devices are left out")
        << Files{{"A.xml", mapper("OTHER")},    {"B.xml", mapper()},           {"C.xml", "<mapper/>"},
                 {"D.xml", mapper("apcmini")},  {"E.xml", mapper("APCMINI ")}, {"F.xml", mapper("")},
                 {"G.xml", mapper("LAUNCHPAD")}}
        << QStringList{"B"};
    QTest::newRow("each mapper of a file")
        << Files{{"A.xml", "<a>" + mapper() + mapper("OTHER") + mapper() + "</a>"}} << QStringList{"A", "A"};
    QTest::newRow("two files of one name shown")
        << Files{{"my.set.xml", mapper()}, {"my.xml", mapper()}} << QStringList{"my", "my"};
}

void TestMappers::offers()
{
    QFETCH(const Files, files);
    QFETCH(const QStringList, names);
    Workspace space;
    QVERIFY(writeFiles(space.mappersFolder(), files));
    QCOMPARE(offered(space), BuiltIn + names);
}

void TestMappers::offersMappersOfEachDevice()
{
    const QStringList &identifiers = Devices::Identifiers;
    Workspace space;
    for (const QString &identifier : identifiers)
        QVERIFY(
            writeFile(space.mappersFolder() + "/for " + identifier + ".xml", mapper(identifier.toLatin1())));
    auto *devices = space.find<QComboBox>("devicescombo");
    QCOMPARE(devices->count(), identifiers.size());
    for (int i = 0; i < identifiers.size(); ++i) {
        devices->setCurrentIndex(i);
        QCOMPARE(offered(space), (QStringList{Texts::SimpleMapper, Texts::factoryMapper(devices->itemText(i)),
                                              "for " + identifiers.at(i)}));
    }
}

#ifdef Q_OS_UNIX // Windows has no such links, pipes and modes of files
void TestMappers::offersWhatLinksLeadTo()
{
    Workspace space;
    const QString folder = space.mappersFolder();
    QVERIFY(writeFile(space.home() + "/target.txt", mapper()));
    QVERIFY(QFile::link(space.home() + "/target.txt", folder + "/Link.xml"));
    QVERIFY(QFile::link(space.home() + "/gone.xml", folder + "/Dead.xml"));
    QVERIFY(QFile::link(folder + "/Ring.xml", folder + "/Ring.xml"));
    QCOMPARE(offered(space), BuiltIn + QStringList{"Link"});
}

void TestMappers::passesOverWhatIsNoFile()
{
    Workspace space;
    const QString folder = space.mappersFolder();
    QVERIFY(QDir(folder).mkdir("x.xml"));
    QVERIFY(writeFile(folder + "/x.xml/inner.xml", mapper()));
    QVERIFY(QFile::link(folder + "/x.xml", folder + "/Folder.xml"));
    QCOMPARE(mkfifo(QFile::encodeName(folder + "/Pipe.xml").constData(), 0600), 0);
    QCOMPARE(mkfifo(QFile::encodeName(space.home() + "/pipe").constData(), 0600), 0);
    QVERIFY(QFile::link(space.home() + "/pipe", folder + "/Link to a pipe.xml"));
    QVERIFY(QFile::link("/dev/zero", folder + "/Zero.xml"));
    QVERIFY(writeFile(folder + "/Zoo.xml", mapper()));
    const ProcessorTime time;
    QCOMPARE(offered(space), BuiltIn + QStringList{"Zoo"});
    QVERIFY(time.elapsed() < LongestStart);

    // Asked for by their names, they are no more readable.
    for (const QString name : {"x.xml", "Pipe.xml", "Link to a pipe.xml", "Zero.xml"}) {
        QVERIFY(readXmlFile(folder + "/" + name, LongestMapper).isNull());
        QVERIFY(!readFile(folder + "/" + name, LongestMapper));
    }
}

void TestMappers::passesOverFilesThatCannotBeOpened()
{
    Workspace space;
    const QString path = space.mappersFolder() + "/A.xml";
    QVERIFY(writeFile(path, mapper()));
    QVERIFY(writeFile(space.mappersFolder() + "/B.xml", mapper()));
    QVERIFY(QFile::setPermissions(path, {}));
    // The system's administrator opens it all the same.
    const bool isOpen = QFile(path).open(QIODevice::ReadOnly);
    QCOMPARE(offered(space), BuiltIn + (isOpen ? QStringList{"A", "B"} : QStringList{"B"}));
}
#endif

void TestMappers::startsWithoutAFolder()
{
    Workspace space;
    QVERIFY(QDir(space.mappersFolder()).removeRecursively());
    QCOMPARE(offered(space), BuiltIn);
    QVERIFY(!QFileInfo::exists(space.mappersFolder()));
}

void TestMappers::looksForMappersOnlyAtTheStart()
{
    Workspace space;
    space.window();
    space.dialogs.expect(Boxes::mappingCreated("OS2L DMX", "AKAI APC Mini"));
    QVERIFY(space.ask<bool>("exportmapping"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(offered(space), BuiltIn);

    auto *devices = space.find<QComboBox>("devicescombo");
    devices->setCurrentIndex(1);
    devices->setCurrentIndex(0);
    QCOMPARE(offered(space), BuiltIn);
    QCOMPARE(findMappers(space.mappersFolder()).size(), 1);
}

void TestMappers::tellsPositions()
{
    Workspace space;
    QVERIFY(writeFiles(space.mappersFolder(), {{"A.xml", mapper("LAUNCHPAD")},
                                               {"B.xml", mapper("OTHER")},
                                               {"C.xml", mapper()},
                                               {"D.xml", mapper("LAUNCHPAD")}}));
    const int akai = 2 * Devices::Akai; // there are two for each device
    const int classic = 2 * Devices::Classic;
    const int found = 2 * Devices::Names.size();
    const auto positions = [&space](const QString &device) {
        QList<int> all;
        for (int index = 0; index < 5; ++index)
            all += space.ask<int>("getmapperid", device, index);
        return all;
    };
    QCOMPARE(positions("APCMINI"), (QList<int>{akai, akai + 1, found + 1, -1, -1}));
    QCOMPARE(positions("LAUNCHPAD"), (QList<int>{classic, classic + 1, found, found + 2, -1}));
    for (const char *device : {"apcmini", "OTHER", ""})
        QCOMPARE(positions(device).at(1), -1);
}

void TestMappers::tellsDevices()
{
    Workspace space;
    const QStringList &identifiers = Devices::Identifiers;
    for (int i = 0; i < identifiers.size(); ++i) {
        QCOMPARE(space.ask<int>("getdeviceindex", identifiers.at(i)), i);
        QVERIFY(space.ask<bool>("deviceinlist", identifiers.at(i)));
    }
    for (const QString name : {"", "OTHER", "apcmini", "APCMINI ", "APC", "AKAI APC Mini", "LAUNCHPADMK2"}) {
        QCOMPARE(space.ask<int>("getdeviceindex", name), -1);
        QVERIFY(!space.ask<bool>("deviceinlist", name));
    }
}

void TestMappers::hostileMappersAreHarmless_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isFound");
    addEncodings();
    addSizes();
    addDepths();
    addHiddenTags();
    addDocumentTypes();
    addOddSigns();
    addCuts();
    addFaults();
}

void TestMappers::hostileMappersAreHarmless()
{
    QFETCH(const QByteArray, content);
    QFETCH(const bool, isFound);
    const QTemporaryDir folder;
    QVERIFY(writeFiles(folder.path(), {{"Odd.xml", content}, {"Zoo.xml", mapper()}}));
    const ProcessorTime time;
    QStringList names;
    for (const Record &found : findMappers(folder.path()))
        names += found.value("device") + " " + found.value("name");
    const qint64 needed = time.elapsed();
    QCOMPARE(names, isFound ? (QStringList{"APCMINI Odd", "APCMINI Zoo"}) : QStringList{"APCMINI Zoo"});
    QVERIFY2(needed < LongestStart, qPrintable(QString("%1 ms").arg(needed)));
}

void TestMappers::refusesLongFiles()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("A.xml");
    const QByteArray content = mapper();
    QVERIFY(writeFile(path, content));
    QVERIFY(!readXmlFile(path, content.size()).isNull());
    QVERIFY(readXmlFile(path, content.size() - 1).isNull());
    QVERIFY(readXmlFile(path, 0).isNull());

    QCOMPARE(LongestMapper, qint64(1024 * 1024));
    QVERIFY(writeFile(path, opened(QByteArray(LongestMapper - content.size(), ' ')) + "</mapper>"));
    QCOMPARE(QFileInfo(path).size(), LongestMapper);
    QCOMPARE(findMappers(folder.path()).size(), 1);
    QVERIFY(writeFile(path, opened(QByteArray(LongestMapper - content.size() + 1, ' ')) + "</mapper>"));
    QCOMPARE(findMappers(folder.path()).size(), 0);
}

void TestMappers::passesOverWhatTheStartCannotWaitFor_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    const auto full = [](const QByteArray &part) {
        return opened(part.repeated(static_cast<int>(LongestMapper - 100) / part.size()) + "</mapper>");
    };
    QTest::newRow("ordinary mappers") << mapper() << 30 << 30;
    QTest::newRow("rows") << full("<map value='A' action='b'/>") << 15 << 17;
    QTest::newRow("elements of four letters") << full("<a/>") << 15 << 17;
    QTest::newRow("what only parsing forgives") << full("<a b='' b=''/>") << 3 << 5;
    QTest::newRow("many attributes") << opened(manyAttributes(60000) + "</mapper>") << 3 << 8;
    QTest::newRow("mappers in mappers") << full("<mapper device='APCMINI'/>") << 10000 << 20000;
}

void TestMappers::passesOverWhatTheStartCannotWaitFor()
{
    QFETCH(const QByteArray, content);
    QFETCH(const int, least);
    QFETCH(const int, most);
    Workspace space;
    for (int i = 0; i < 30; ++i)
        QVERIFY(writeFile(space.mappersFolder() + "/" + QString::number(i) + ".xml", content));
    const ProcessorTime time;
    const int found = offered(space).size() - BuiltIn.size();
    QVERIFY2(time.elapsed() < LongestStart, qPrintable(QString("%1 ms").arg(time.elapsed())));
    QVERIFY2(least <= found && found <= most, qPrintable(QString::number(found)));
}

void TestMappers::readsLikeAPlainDocument_data()
{
    QTest::addColumn<QByteArray>("content");
    const auto plain = [](const char *name, const QByteArray &content) { QTest::newRow(name) << content; };

    const auto declared = [](const char *encoding) {
        return QByteArray("<?xml version=\"1.0\" encoding=\"") + encoding + "\"?>";
    };
    const QString text = QString::fromUtf8("<a b='ü €'>\nß</a>\n");

    plain("UTF-8", text.toUtf8());
    plain("UTF-8, declared", declared("UTF-8") + text.toUtf8());
    plain("UTF-8, byte order mark", "\xEF\xBB\xBF" + text.toUtf8());
    plain("UTF-16, low byte first", "\xFF\xFE" + encoded(text, "UTF-16LE"));
    plain("UTF-16, high byte first", "\xFE\xFF" + encoded(text, "UTF-16BE"));
    plain("UTF-16, declared", "\xFF\xFE" + encoded(declared("UTF-16") + text, "UTF-16LE"));
    plain("UTF-16 without a mark, low byte first", encoded(declared("UTF-16") + text, "UTF-16LE"));
    plain("UTF-32", QByteArray("\xFF\xFE\0\0", 4) + encoded(text, "UTF-32LE"));
    plain("Latin-1, declared", declared("ISO-8859-1") + "<a b='\xFC'>\xDF</a>");
    plain("Latin-1, declared in single quotes", "<?xml version='1.0' encoding='ISO-8859-1'?><a b='\xFC'/>");
    plain("Windows-1252, declared", declared("windows-1252") + "<a b='\x80'/>");
    plain("Latin-1, not declared", "<a b='\xFC'>\xDF</a>");
    plain("an encoding that nobody knows", declared("nobody-knows") + "<a b='\xC3\xBC'/>");
    plain("an empty encoding", declared("") + "<a/>");
    plain("declared as standing alone",
          "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"yes\"?><a b='\xFC'/>");
    plain("the five entities", "<a b='&lt;&gt;&amp;&apos;&quot;'>&lt;&gt;&amp;</a>");
    plain("characters by number", "<a b='&#65;&#x20AC;'>&#10;&#xFC;</a>");
    plain("an entity that nobody declared", "<a>x &foo; y</a>");
    plain("an entity that nobody declared, in an attribute", "<a b='x &foo; y'/>");
    plain("an entity that nobody declared, behind a document type",
          "<!DOCTYPE a SYSTEM 'a.dtd'><a>x &foo; y</a>");
    plain("marked text", "<a><![CDATA[ <b> & ]] > ]]></a>");
    plain("comments", "<!-- 1 --><a><!-- 2 > < --></a><!-- 3 -->");
    plain("a comment with two strokes inside", "<a><!-- 1 -- 2 --></a>");
    plain("instructions", "<?one?><a><?two 2 > ?></a><?three?>");
    plain("a document type", "<!DOCTYPE a><a/>");
    plain("a public document type", "<!DOCTYPE a PUBLIC \"x\" \"y\"><a/>");
    plain("CR LF in text", "<a>x\r\ny\r\n<b/>\r\n</a>");
    plain("CR alone in text", "<a>x\ry</a>");
    plain("line breaks by number in attributes", "<a b='x&#10;y&#13;z&#9;'/>");
    plain("duplicate attributes", "<a b='1' b='2'/>");
    plain("quotes in quotes", "<a b=\"it's\" c='\"'/>");
    plain("brackets in attributes", "<a b='>' c='/>'><d/></a>");
    plain("an opening bracket in an attribute", "<a b='<'/>");
    plain("prefixes", "<x:a xmlns:x='urn:x' x:b='1' b='2'><x:c/></x:a>");
    plain("a prefix that nobody declared", "<x:a x:b='1'/>");
    plain("letters beyond ASCII in names", "<\xC3\xBC \xC3\x9F='1'/>");
    plain("a control character", "<a b='\x01'>\x02</a>");
    plain("blanks in front of the declaration", "\n" + declared("UTF-8") + "<a/>");
    QTest::newRow("empty") << QByteArray();
}

void TestMappers::readsLikeAPlainDocument()
{
    QFETCH(const QByteArray, content);
    const QTemporaryDir folder;
    const QString path = folder.filePath("A.xml");
    QVERIFY(writeFile(path, content));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QDomDocument plain;
    const bool isRead = plain.setContent(&file);
    const QDomDocument found = readXmlFile(path, LongestMapper);
    QCOMPARE(found.toString(), isRead ? plain.toString() : QString());
    QCOMPARE(found.isNull(), !isRead);
}

void TestMappers::readsNothingWhereThereIsNoFile()
{
    const QTemporaryDir folder;
    QVERIFY(readXmlFile(folder.filePath("missing.xml"), LongestMapper).isNull());
    QVERIFY(readXmlFile(folder.path(), LongestMapper).isNull());
    QVERIFY(readXmlFile("", LongestMapper).isNull());
}

QTEST_MAIN(TestMappers)
#include "test_mappers.moc"
