#include "support/boxes.h"
#include "support/devices.h"
#include "support/texts.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QPointer>

namespace {

using namespace Devices;

constexpr int NoDevice = -1;

const QString Color = AkaiPalette.at(2);
const QStringList KeyMenu = {"Remove",    "---", "Off Color >",      "On Color >",
                             "[ ] Blink", "---", "[ ] Set as Switch"};

/** An entry in words: "---" is a separator, "[x] " stands before what is ticked, " >" behind a submenu. */
QString wordsFor(const QAction *action)
{
    if (action->isSeparator())
        return "---";
    const QString box = action->isChecked() ? "[x] " : "[ ] ";
    return (action->isCheckable() ? box : QString()) + action->text() + (action->menu() ? " >" : "");
}

QStringList entriesOf(const QMenu *menu)
{
    QStringList entries;
    for (const QAction *action : menu->actions())
        entries.append(wordsFor(action));
    return entries;
}

/** The entries that the menu has room for: it leaves out separators that separate nothing. */
QStringList entriesInSight(const QMenu *menu)
{
    QStringList entries;
    for (QAction *action : menu->actions()) {
        if (action->isEnabled() && !menu->actionGeometry(action).isEmpty())
            entries.append(wordsFor(action));
    }
    return entries;
}

QMenu *submenuOf(const QMenu *menu, const QString &text)
{
    for (const QAction *action : menu->actions()) {
        if (action->text() == text && action->menu())
            return action->menu();
    }
    qFatal("no submenu %s", qPrintable(text));
}

/** The colour that fills an entry's icon of 10 by 10; "none" without an icon, "odd" for any other one. */
QString iconOf(const QAction *action)
{
    if (action->icon().isNull())
        return "none";
    if (action->icon().availableSizes() != QList<QSize>{{10, 10}})
        return "odd";
    const QImage image = action->icon().pixmap(10, 10).toImage().convertToFormat(QImage::Format_ARGB32);
    QImage filled(10, 10, QImage::Format_ARGB32);
    filled.fill(image.pixelColor(0, 0));
    return image == filled && image.pixelColor(0, 0).alpha() == 255 ? image.pixelColor(0, 0).name() : "odd";
}

QStringList iconsOf(const QMenu *menu)
{
    QStringList icons;
    for (const QAction *action : menu->actions())
        icons.append(iconOf(action));
    return icons;
}

/** The submenu of a palette, or without one of a device that takes any colour. "current" stands ticked in it. */
QStringList colorEntries(const QStringList &palette, const QString &current)
{
    QStringList entries = {current == "default" ? "✔default" : " default", "---"};
    for (const QString &color : palette)
        entries.append((color == current ? "✔" : " ") + color);
    return palette.isEmpty() ? entries + QStringList{"Select ..."} : entries;
}

bool startOnKeys(Workspace &space, int device)
{
    return space.loadSomeShow() && space.click("radio_outputmidi") && space.choose("devicescombo", device);
}

/** A loaded show, and a pad or key 2,2 of Live Button 3; the pad is 2,1 of the second column. */
QModelIndex layOne(Workspace &space, bool onKeys, int device = Akai)
{
    if (onKeys ? !startOnKeys(space, device) || !space.putOnKey(3, 2, 2)
               : !space.loadSomeShow() || !space.click("radioButton_16pads") || !space.putOnPad(3, 2, 1))
        return {};
    return onKeys ? space.grid()->index(2, 2) : space.pads()->index(2, 1);
}

/** A point of the grid's viewport that has no cell under it, at the lower right. */
QPoint besideTheCells(const QTableView *view)
{
    const QPoint corner = view->viewport()->rect().bottomRight() - QPoint(3, 3);
    if (view->indexAt(corner).isValid())
        qFatal("no place beside the cells");
    return corner;
}

/** All that a key keeps. */
QMap<int, QString> valuesOf(const QModelIndex &key)
{
    QMap<int, QString> values;
    for (const int role : {int(Qt::EditRole), int(Qt::DecorationRole), int(Qt::ForegroundRole), int(PageRole),
                           int(DisplayNameRole), int(ButtonRole), int(AvailableRole), int(OffColorRole),
                           int(OnColorRole), int(BlinkRole)})
        values.insert(role, key.data(role).toString());
    return values;
}

/** Gives a key an off colour, an on colour and a blink text. */
bool paint(Workspace &space, const QModelIndex &key, const QString &off, const QString &on,
           const QString &blink)
{
    return space.grid()->setData(key, off, OffColorRole) && space.grid()->setData(key, on, OnColorRole)
           && space.grid()->setData(key, blink, BlinkRole);
}

bool toggleSwitch(Workspace &space, const QPoint &cell)
{
    return space.pickOnKey(cell.x(), cell.y(), {"Set as Switch"});
}

/** Whether a key's menu shows that it is the Switch. */
bool isSwitch(Workspace &space, int row, int col)
{
    QMenu *menu = space.rightClick(space.gridView(), space.grid()->index(row, col));
    if (!menu)
        qFatal("no menu on a key");
    menu->close();
    return wordsFor(menu->actions().constLast()) == "[x] Set as Switch";
}

/** A key without a Live Button as it has to be, its colours red and green, and blinking. */
QMap<int, QString> emptied(const QString &label, const QString &available, const QString &textColor)
{
    return {{Qt::EditRole, label},      {DisplayNameRole, label},
            {PageRole, Texts::NoPage},  {ButtonRole, Texts::NoButton},
            {AvailableRole, available}, {Qt::ForegroundRole, QColor(textColor).name()},
            {OffColorRole, "red"},      {OnColorRole, "green"},
            {BlinkRole, "1"},           {Qt::DecorationRole, Texts::NoColor}};
}

int childrenOf(Workspace &space)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return space.window().findChildren<QObject *>().size();
}

} // namespace

/** The menus of pads and keys, where a random player does not get: their looks, odd texts, places without a cell. */
class TestMenus final : public QObject
{
    Q_OBJECT

private slots:
    void padsMenuBesideTheCells();
    void keyMenuShowsTheKey_data();
    void keyMenuShowsTheKey();
    void keyMenuActsOnTheSelection_data();
    void keyMenuActsOnTheSelection();

    void menuOfALeftoverIsForNoOtherKey();
    void colorByNumber_data();
    void colorByNumber();
    void asksForColor_data();
    void asksForColor();

    void switchComesAndGoes_data();
    void switchComesAndGoes();
    void switchBesideTheCells();
    void switchStaysMarked();

    void menuOverAnOpenMenu();
    void tableChangesUnderTheMenu_data();
    void tableChangesUnderTheMenu();
    void windowGoesWithAnOpenMenu_data();
    void windowGoesWithAnOpenMenu();
    void openAtTheMouseAndAreFreed_data();
    void openAtTheMouseAndAreFreed();
};

/** The pads fill their view, so that no click finds the place. */
void TestMenus::padsMenuBesideTheCells()
{
    Workspace space;
    QVERIFY(layOne(space, false).isValid());
    for (const char *selected : {"", "2,1"}) {
        Workspace::select(space.padsView(), selected);
        QVERIFY(space.call("customMenuRequestedvdj", QPoint(-5, -5)));
        QCOMPARE(space.ticked(), QList<int>({3}));
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(menu->styleSheet(), space.find<QMenu>("menuPage")->styleSheet());
        QVERIFY(Workspace::pick(menu, {"Remove"}));
    }
    QCOMPARE(space.ticked(), QList<int>());
}

void TestMenus::keyMenuShowsTheKey_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("blink");
    QTest::addColumn<QString>("offTick");
    QTest::addColumn<QString>("onTick");
    QTest::addColumn<bool>("isBlinkTicked");
    const auto row = [](const QString &name, int device, const QString &off, const QString &on,
                        const char *blink, const QString &offTick, const QString &onTick,
                        bool isBlinkTicked = false) {
        QTest::newRow(qPrintable(name)) << device << off << on << blink << offTick << onTick << isBlinkTicked;
    };
    for (int device = 0; device < Names.size(); ++device)
        row(Names.at(device), device, "", "", "0", "default", "default");
    const QString first = ClassicPalette.first();
    const QString last = ClassicPalette.last();
    row("first and last colour", Classic, last, first, "", last, first);
    row("in other letters", Akai, "Red", "GREEN", "", "", "");
    row("another device's in small letters", Classic, "#aa5500", "#12ab34", "", "", "");
    row("another device's name", S, "red", "black", "", "", "");
    row("part of a colour's text", Akai, "re", "yellow ", "", "", "");
    row("the word default", Akai, "default", " default", "", "", "");
    row("a blank", Akai, " ", " ", "", "", "");
    row("any colours", Mk2, "#12ab34", "#fedcba", "", "", "");
    row("any off colour alone", Mk2, "#12ab34", "", "", "", "default");
    row("a palette's colours", Mk2, "red", "#AA5500", "", "", "");
    row("blinking", Akai, "", "", "1", "default", "default", true);
    row("blink: another number", Akai, "", "", "2", "default", "default");
    row("blink: a word", Akai, "", "", "true", "default", "default");
    row("blink: a blank behind", Akai, "", "", "1 ", "default", "default");
}

void TestMenus::keyMenuShowsTheKey()
{
    QFETCH(int, device);
    QFETCH(QString, off);
    QFETCH(QString, on);
    QFETCH(QString, blink);
    QFETCH(QString, offTick);
    QFETCH(QString, onTick);
    QFETCH(bool, isBlinkTicked);

    Workspace space;
    QVERIFY2(startOnKeys(space, device), qPrintable(space.dialogs.faults()));
    QVERIFY(space.put("0@2,2 4@3,3")); // number 0 counts as a Live Button
    const QModelIndex key = space.grid()->index(2, 2);
    QVERIFY(paint(space, key, off, on, blink));
    QVERIFY(paint(space, space.grid()->index(3, 3), "green", "black", blink == "1" ? "0" : "1"));
    Workspace::select(space.gridView(), "3,3 2,2"); // the menu is about the clicked key

    QMenu *menu = space.rightClick(space.gridView(), key);
    QVERIFY(menu);
    QStringList entries = KeyMenu;
    if (isBlinkTicked)
        entries[4] = "[x] Blink";
    QCOMPARE(entriesOf(menu), entries);
    QCOMPARE(entriesInSight(menu), entries);
    QCOMPARE(iconsOf(menu).count("none"), entries.size());
    QCOMPARE(menu->parent(), &space.window());

    const QStringList palette = Palettes.at(device);
    const auto iconsFor = [&palette](const QString &color) {
        QStringList icons = {"none", "none"};
        for (const QString &each :
             palette.isEmpty() ? QStringList{color.isEmpty() ? "black" : color} : palette)
            icons.append(QColor(each).name());
        return icons;
    };
    const QMenu *offColors = submenuOf(menu, "Off Color");
    const QMenu *onColors = submenuOf(menu, "On Color");
    QCOMPARE(entriesOf(offColors), colorEntries(palette, offTick));
    QCOMPARE(entriesOf(onColors), colorEntries(palette, onTick));
    QCOMPARE(iconsOf(offColors), iconsFor(off));
    QCOMPARE(iconsOf(onColors), iconsFor(on));
    for (const QMenu *each : {static_cast<const QMenu *>(menu), offColors, onColors})
        QCOMPARE(each->styleSheet(), space.find<QMenu>("menuPage")->styleSheet());

    // What it ticks decides for all that are selected.
    QVERIFY(Workspace::pick(menu, {"Blink"}));
    for (const int i : {2, 3})
        QCOMPARE(space.grid()->index(i, i).data(BlinkRole).toString(), QString(isBlinkTicked ? "" : "1"));
    QCOMPARE(space.grid()->index(4, 4).data(BlinkRole).toString(), QString("0"));
}

void TestMenus::keyMenuActsOnTheSelection_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("stored");
    const auto row = [](const char *where, int device, const QStringList &path, int role,
                        const QString &stored) {
        QTest::addRow("%s: %s", where, qPrintable(path.join(','))) << device << path << role << stored;
    };
    // Beside the cells, the menu is of a key that has nothing set.
    row("beside the cells", Akai, {"Remove"}, ButtonRole, Texts::NoButton);
    row("beside the cells", Akai, {"On Color", " " + Color}, OnColorRole, Color);
    row("beside the cells", Pro, {"Off Color", "Select ..."}, OffColorRole, "#00ff00");
    row("beside the cells", Akai, {"Blink"}, BlinkRole, "1");
    // A device that says nothing of its colours takes any.
    row("no device", NoDevice, {"Remove"}, ButtonRole, Texts::NoButton);
    row("no device", NoDevice, {"Off Color", " default"}, OffColorRole, "");
    row("no device", NoDevice, {"On Color", " default"}, OnColorRole, "");
    row("no device", NoDevice, {"Off Color", "Select ..."}, OffColorRole, "#00ff00");
    row("no device", NoDevice, {"On Color", "Select ..."}, OnColorRole, "#00ff00");
    row("no device", NoDevice, {"Blink"}, BlinkRole, "");
}

void TestMenus::keyMenuActsOnTheSelection()
{
    QFETCH(int, device);
    QFETCH(QStringList, path);
    QFETCH(int, role);
    QFETCH(QString, stored);

    Workspace space;
    const QModelIndex key = layOne(space, true, device == NoDevice ? Pro : device);
    QVERIFY(paint(space, key, "#ff0000", "#ff0000", "1"));
    space.find<QComboBox>("devicescombo")->setCurrentIndex(device);
    QTableView *view = space.gridView();
    const bool isOnKey = device == NoDevice;
    QMenu *menu = space.rightClick(view, isOnKey ? view->visualRect(key).center() : besideTheCells(view));
    QVERIFY(menu);
    const QStringList colors = colorEntries(Palettes.value(device), isOnKey ? "#ff0000" : "default");
    QCOMPARE(entriesOf(submenuOf(menu, "Off Color")), colors);
    QCOMPARE(entriesOf(submenuOf(menu, "On Color")), colors);
    QCOMPARE(wordsFor(menu->actions().constLast()), QString("[ ] Set as Switch")); // no Switch, no tick
    Workspace::select(view, "2,2 4,4");
    if (path.constLast() == "Select ...")
        space.dialogs.expect(Boxes::colorDialog(isOnKey ? Qt::red : Qt::black, Qt::green));
    QVERIFY(Workspace::pick(menu, path));
    QCOMPARE(key.data(role).toString(), stored);
    QCOMPARE(space.grid()->index(4, 4).data(role).toString(), stored);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestMenus::menuOfALeftoverIsForNoOtherKey()
{
    Workspace space;
    QVERIFY(layOne(space, true, MiniMk3).isValid() && space.putOnKey(4, 0, 2));
    QVERIFY(space.choose("devicescombo", Akai)); // has no key there
    const QStringList before = space.snapshot();
    for (const QStringList &path : {QStringList{"Remove"}, {"Off Color", " " + Color}, {"Blink"}}) {
        Workspace::select(space.gridView(), "2,2");
        QVERIFY(space.pickOnKey(0, 2, path));
        QCOMPARE(space.snapshot(), before);
    }
}

void TestMenus::colorByNumber_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("stored");
    const auto row = [](const char *name, int device, int number, const QString &stored) {
        QTest::newRow(name) << device << number << stored;
    };
    row("AKAI, 0", Akai, 0, "");
    row("AKAI, 1", Akai, 1, AkaiPalette.first());
    row("AKAI, last", Akai, 4, AkaiPalette.last());
    row("AKAI, beyond", Akai, 5, "");
    row("AKAI, negative", Akai, -1, "");
    row("Launchpad, last", Classic, 16, ClassicPalette.last());
    row("Launchpad, beyond", Classic, 999, "");
    row("MKII, 0", Mk2, 0, "");
    row("MKII, 1", Mk2, 1, "");
    row("no device, 0", NoDevice, 0, "");
    row("no device, 1", NoDevice, 1, "");
}

void TestMenus::colorByNumber()
{
    QFETCH(int, device);
    QFETCH(int, number);
    QFETCH(QString, stored);

    Workspace space;
    QVERIFY2(startOnKeys(space, Pro), qPrintable(space.dialogs.faults()));
    space.find<QComboBox>("devicescombo")->setCurrentIndex(device);
    for (const int i : {2, 4, 5})
        QVERIFY(paint(space, space.grid()->index(i, i), "#123456", "#123456", "1"));
    Workspace::select(space.gridView(), "2,2 4,4");
    const auto offAndOn = [&space](int i) {
        const QModelIndex key = space.grid()->index(i, i);
        return key.data(OffColorRole).toString() + "|" + key.data(OnColorRole).toString();
    };
    QVERIFY(space.call("colorpadchange", number));
    QCOMPARE(offAndOn(2), stored + "|#123456");
    QVERIFY(space.call("coloronpadchange", number));
    QCOMPARE(offAndOn(2), stored + "|" + stored);
    QCOMPARE(offAndOn(4), stored + "|" + stored);
    QCOMPARE(offAndOn(5), QString("#123456|#123456"));
}

void TestMenus::asksForColor_data()
{
    QTest::addColumn<QString>(
        "clicked");                      // the key whose menu was open before: none, one, or beside the cells
    QTest::addColumn<QString>("before"); // its colours
    QTest::addColumn<QColor>("initial");
    QTest::addColumn<QColor>("answer");
    QTest::addColumn<QString>("stored"); // in the key that is selected
    const auto row = [](const char *name, const char *clicked, const char *before, const QColor &initial,
                        const QColor &answer, const char *stored) {
        QTest::newRow(name) << clicked << before << initial << answer << stored;
    };
    row("none so far", "key", "", Qt::black, QColor(10, 11, 12), "#0a0b0c");
    row("a name so far", "key", "red", Qt::red, Qt::green, "#00ff00");
    row("capital letters so far", "key", "#AA5500", QColor("#aa5500"), Qt::black, "#000000");
    row("no colour at all so far", "key", "nonsense", Qt::black, Qt::blue, "#0000ff");
    row("OK at once", "key", "#FF0000", Qt::red, Qt::red, "#ff0000");
    row("cancelled", "key", "#12AB34", QColor("#12ab34"), QColor(), "#123456");
    row("no menu yet", "", "#12AB34", Qt::black, Qt::red, "#ff0000");
    row("beside the cells", "beside", "#12AB34", Qt::black, Qt::red, "#ff0000");
}

void TestMenus::asksForColor()
{
    QFETCH(QString, clicked);
    QFETCH(QString, before);
    QFETCH(QColor, initial);
    QFETCH(QColor, answer);
    QFETCH(QString, stored);

    Workspace space;
    const QModelIndex key = layOne(space, true, Mk2);
    const QModelIndex selected = space.grid()->index(4, 4);
    QVERIFY(paint(space, key, before, before, "") && paint(space, selected, "#123456", "#123456", ""));
    QTableView *view = space.gridView();
    if (!clicked.isEmpty()) {
        QMenu *menu =
            space.rightClick(view, clicked == "key" ? view->visualRect(key).center() : besideTheCells(view));
        QVERIFY(menu);
        menu->close();
    }
    Workspace::select(view, "4,4");
    for (const int role : {int(OffColorRole), int(OnColorRole)}) {
        const QMap<int, QString> clickedBefore = valuesOf(key);
        QMap<int, QString> expected = valuesOf(selected);
        expected.insert(role, stored);
        space.dialogs.expect(Boxes::colorDialog(initial, answer));
        QVERIFY(space.call(role == OffColorRole ? "rgbpadchange" : "rgbonpadchange"));
        QCOMPARE(valuesOf(selected), expected);
        QCOMPARE(valuesOf(key), clickedBefore);
    }
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestMenus::switchComesAndGoes_data()
{
    QTest::addColumn<QPoint>("cell"); // row, column
    QTest::addColumn<bool>("isAssigned");
    QTest::newRow("empty key") << QPoint(4, 4) << false;
    QTest::newRow("key with a Live Button") << QPoint(4, 4) << true;
    QTest::newRow("key of a band with a Live Button") << QPoint(4, 11) << true;
    QTest::newRow("band that the device lacks") << QPoint(0, 2) << false;
    QTest::newRow("Live Button where the device lacks a key") << QPoint(4, 0) << true;
    QTest::newRow("first cell of all") << QPoint(0, 0) << false;
    QTest::newRow("last cell of all") << QPoint(11, 11) << false;
    QTest::newRow("gap") << QPoint(5, 10) << false;
}

void TestMenus::switchComesAndGoes()
{
    QFETCH(QPoint, cell);
    QFETCH(bool, isAssigned);

    Workspace space;
    QVERIFY(layOne(space, true, Pro).isValid());
    QVERIFY(!isAssigned || space.putOnKey(4, cell.x(), cell.y()));
    QVERIFY(space.choose("devicescombo", Akai));
    const QModelIndex key = space.grid()->index(cell.x(), cell.y());
    QVERIFY(paint(space, key, "red", "green", "1"));
    const QMap<int, QString> empty = emptied(Texts::keyLabel(cell.x(), cell.y()), "1", "white");
    const QMap<int, QString> marked = emptied(Texts::Switch, "0", "green");

    QVERIFY(toggleSwitch(space, cell));
    QCOMPARE(valuesOf(key), marked);
    QCOMPARE(space.ticked(), QList<int>({3}));
    QVERIFY(isSwitch(space, cell.x(), cell.y()));

    QVERIFY(toggleSwitch(space, cell));
    QCOMPARE(valuesOf(key), empty);
    QVERIFY(!isSwitch(space, cell.x(), cell.y()));

    QVERIFY(toggleSwitch(space, cell));
    QCOMPARE(valuesOf(key), marked);
    QVERIFY(toggleSwitch(space, {2, 2}));
    QCOMPARE(valuesOf(key), empty);
    QVERIFY(isSwitch(space, 2, 2) && !isSwitch(space, cell.x(), cell.y()));
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestMenus::switchBesideTheCells()
{
    Workspace space;
    QVERIFY(layOne(space, true).isValid());
    const QStringList before = space.snapshot();
    const QPoint beside = besideTheCells(space.gridView());
    QVERIFY(Workspace::pick(space.rightClick(space.gridView(), beside), {"Set as Switch"}));
    QCOMPARE(space.snapshot(), before);

    // It moves the Switch to no cell at all.
    QVERIFY(toggleSwitch(space, {4, 4}));
    QVERIFY(Workspace::pick(space.rightClick(space.gridView(), beside), {"Set as Switch"}));
    QCOMPARE(space.grid()->index(4, 4).data().toString(), Texts::keyLabel(4, 4));
    QVERIFY(!isSwitch(space, 4, 4));
}

/** In the menu alone, after "Clean": so a click takes the role away instead of giving it. */
void TestMenus::switchStaysMarked()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi") && toggleSwitch(space, {0, 4}));
    const QModelIndex key = space.grid()->index(0, 4);
    QVERIFY(space.click("cleanmidi_button"));
    QCOMPARE(key.data().toString(), Texts::keyLabel(0, 4));
    QVERIFY(isSwitch(space, 0, 4));
    QVERIFY(toggleSwitch(space, {0, 4}));
    QCOMPARE(key.data().toString(), Texts::keyLabel(0, 4));
    QVERIFY(!isSwitch(space, 0, 4));
}

/** An entry of either works on what is clicked and selected by then. */
void TestMenus::menuOverAnOpenMenu()
{
    Workspace space;
    const QModelIndex key = layOne(space, true);
    QVERIFY(space.putOnKey(4, 3, 3));
    const int children = childrenOf(space);
    QPointer<QMenu> first = space.rightClick(space.gridView(), key);
    QPointer<QMenu> second = space.rightClick(space.gridView(), space.grid()->index(3, 3));
    QVERIFY(first && second && first != second);
    QVERIFY(Workspace::pick(second, {"Remove"}));
    QCOMPARE(space.ticked(), QList<int>({3}));
    if (first)
        first->close();
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(childrenOf(space), children);
}

void TestMenus::tableChangesUnderTheMenu_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("path");
    for (const char *slot : {"on_cleanmidi_button_clicked", "on_actionNew_2_triggered"}) {
        for (const QStringList &path :
             {QStringList{"Remove"}, {"Off Color", " " + Color}, {"Blink"}, {"Set as Switch"}})
            QTest::addRow("%s, %s", slot, qPrintable(path.constLast())) << QByteArray(slot) << path;
    }
}

void TestMenus::tableChangesUnderTheMenu()
{
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, path);

    Workspace space;
    const QModelIndex key = layOne(space, true);
    QMenu *menu = space.rightClick(space.gridView(), key);
    QVERIFY(menu);
    QVERIFY(space.call(slot));
    QVERIFY(Workspace::pick(menu, path));
    const bool becomesSwitch = path.constLast() == "Set as Switch";
    QCOMPARE(isSwitch(space, 2, 2), becomesSwitch);
    if (!becomesSwitch)
        QCOMPARE(space.leftOnGrid(), QString()); // nothing is selected any more
}

void TestMenus::windowGoesWithAnOpenMenu_data()
{
    QTest::addColumn<QString>("where");
    for (const char *where : {"pad", "key", "submenu", "closed a moment ago"})
        QTest::newRow(where) << where;
}

void TestMenus::windowGoesWithAnOpenMenu()
{
    QFETCH(QString, where);

    QPointer<QMenu> menu;
    {
        Workspace space;
        const QModelIndex cell = layOne(space, where != "pad");
        menu = space.rightClick(where == "pad" ? space.padsView() : space.gridView(), cell);
        QVERIFY(menu);
        if (where == "submenu") {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(2)).center());
            QTRY_VERIFY(submenuOf(menu, "Off Color")->isVisible());
        } else if (where == "closed a moment ago") {
            menu->close();
        }
    }
    QVERIFY(!menu);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
    QVERIFY(!QApplication::activePopupWidget());
}

void TestMenus::openAtTheMouseAndAreFreed_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QStringList>("path"); // empty: the menu is closed
    QTest::newRow("pad, closed") << false << QStringList();
    QTest::newRow("pad, Remove") << false << QStringList{"Remove"};
    QTest::newRow("key, closed") << true << QStringList();
    QTest::newRow("key, colour") << true << QStringList{"On Color", " " + Color};
    QTest::newRow("key, Switch") << true << QStringList{"Set as Switch"};
}

void TestMenus::openAtTheMouseAndAreFreed()
{
    QFETCH(bool, onKeys);
    QFETCH(QStringList, path);

    Workspace space;
    const QModelIndex cell = layOne(space, onKeys);
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    view->horizontalHeader()->show(); // else the table and its viewport begin at the same place
    QTRY_VERIFY(view->viewport()->y() > 5);
    const int children = childrenOf(space);
    for (int turn = 0; turn < 20; ++turn) {
        space.window().move(turn, 2 * turn);
        QVERIFY(onKeys || space.putOnPad(3, cell.row(), cell.column()));
        const QPoint point = view->visualRect(cell).topLeft() + QPoint(turn, 5);
        QMenu *menu = space.rightClick(view, point);
        QVERIFY(menu);
        QCOMPARE(menu->pos(), view->viewport()->mapToGlobal(point));
        if (path.isEmpty() || (path.size() == 2 && turn > 0))
            menu->close();
        else
            QVERIFY(Workspace::pick(menu, path));
        QVERIFY(!QApplication::activePopupWidget());
    }
    QCOMPARE(childrenOf(space), children);
}

QTEST_MAIN(TestMenus)
#include "test_menus.moc"
