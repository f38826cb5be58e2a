#include "desktop/desk.h"
#include "support/files.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QToolTip>

/** Lists of combo boxes, menus of the right button, tool tips and the editor of a pad's text, with a real mouse. */
class TestPopups final : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void combos_data();
    void combos();
    void pageShowsItsButtons();
    void bankShowsItsPads();
    void deviceBringsItsKeysAndMappers();
    void menuOfAPad_data();
    void menuOfAPad();
    void emptyPadHasNoMenu();
    void menuOfAKey_data();
    void menuOfAKey();
    void paletteOfAKey_data();
    void paletteOfAKey();
    void anyColourOfAKey_data();
    void anyColourOfAKey();
    void menuHoldsForAllSelectedKeys();
    void switchMoves();
    void rename_data();
    void rename();
    void menuTakesOverTheTextOfAPad();
    void whatCannotBeRenamed_data();
    void whatCannotBeRenamed();
    void toolTips_data();
    void toolTips();

private:
    std::unique_ptr<Desk> m_desk;
};

namespace {

/** The rows that a table shows, as "8 9". */
QString shownRows(const QTableView *view)
{
    QStringList rows;
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        if (!view->isRowHidden(row))
            rows += QString::number(row);
    }
    return rows.join(' ');
}

QString textOf(const QModelIndex &cell, int role = Qt::DisplayRole)
{
    return cell.data(role).toString();
}

} // namespace

void TestPopups::init()
{
    if (m_desk)
        return;
    auto desk = std::make_unique<Desk>();
    QVERIFY(desk->start());
    m_desk = std::move(desk);
}

void TestPopups::cleanup()
{
    if (QTest::currentTestFailed()) // the next one shall have a desk that is in order
        m_desk.reset();
}

void TestPopups::combos_data()
{
    QTest::addColumn<QString>("combo");
    QTest::addColumn<QString>("how");
    QTest::addColumn<int>("picked");

    const QList<QPair<const char *, const char *>> combos = {
        {"combobox", "Live Pages"},       {"bankcombo", "Bank"},
        {"devicescombo", "Device"},       {"mididevices", "Mapping"},
        {"combo_offcolor", "Off colour"}, {"combo_oncolor", "On colour"},
    };
    for (const auto &[combo, name] : combos) {
        for (const QString how :
             {"by the mouse", "by arrows in the open list", "by arrows on the closed box"})
            QTest::newRow(qPrintable(name + (" " + how))) << combo << how << 1;
        QTest::newRow(qPrintable(name + QString(" given up by Escape"))) << combo << "Escape" << 0;
        QTest::newRow(qPrintable(name + QString(" given up by a click beside it"))) << combo << "beside" << 0;
    }
}

void TestPopups::combos()
{
    QFETCH(QString, combo);
    QFETCH(QString, how);
    QFETCH(int, picked);
    Desk &desk = *m_desk;
    QVERIFY(combo == "combobox" || combo == "bankcombo" ? desk.clearPads() : desk.clearKeys());
    auto *box = desk.space.find<QComboBox>(qPrintable(combo));
    box->setCurrentIndex(0);

    if (how == "by the mouse") {
        desk.hands.pick(box, 1);
    } else {
        desk.hands.openList(box);
        if (how == "by arrows on the closed box")
            desk.hands.key("Escape");
        else if (how == "beside")
            desk.hands.click(desk.on("label_4"));
        if (how != "beside")
            desk.hands.key("Down");
        if (how == "by arrows in the open list")
            desk.hands.key("Return");
        else if (how == "Escape")
            desk.hands.key("Escape");
        desk.hands.awaitNoPopup();
    }
    QVERIFY(desk.hands.play());

    QCOMPARE(box->currentIndex(), picked);
    box->setCurrentIndex(0);
}

void TestPopups::pageShowsItsButtons()
{
    Desk &desk = *m_desk;
    auto *pages = desk.space.find<QComboBox>("combobox");
    desk.hands.pick(pages, 2);
    QVERIFY(desk.hands.play());
    QCOMPARE(shownRows(desk.list()), QString("8 9 10 11 12 13 14 15"));

    desk.hands.pick(pages, 0);
    QVERIFY(desk.hands.play());
    QCOMPARE(shownRows(desk.list()), QString("0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15"));
}

void TestPopups::bankShowsItsPads()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    auto *banks = desk.space.find<QComboBox>("bankcombo");
    desk.hands.pick(banks, 7);
    QVERIFY(desk.hands.play());
    QCOMPARE(shownRows(desk.pads()), QString("56 57 58 59 60 61 62 63"));
    QCOMPARE(desk.space.find<QLineEdit>("bankname")->text(), QString("BANK 8"));

    desk.hands.pick(banks, 0);
    QVERIFY(desk.hands.play());
    QCOMPARE(shownRows(desk.pads()), QString("0 1 2 3 4 5 6 7"));
    QCOMPARE(desk.space.find<QLineEdit>("bankname")->text(), QString("BANK 1"));
}

void TestPopups::deviceBringsItsKeysAndMappers()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    auto *devices = desk.space.find<QComboBox>("devicescombo");
    QVERIFY(devices->findText("Novation Launchpad Mini MK3") > 0);
    desk.hands.pick(devices, devices->findText("Novation Launchpad Mini MK3"));
    QVERIFY(desk.hands.play());

    const QString pads = ".." + QString(8, 'X') + ".X";
    QCOMPARE(desk.space.keys(), QStringList({"..XXXX......", "............"})
                                    + QStringList(QVector<QString>(8, pads).toList())
                                    + QStringList({"............", "............"}));
    QCOMPARE(Workspace::itemsOf(desk.space.find<QComboBox>("mididevices")),
             QStringList({"Simple OS2L mapping", "Novation Launchpad Mini MK3 mapping (factory)"}));
    QVERIFY(!desk.space.find<QWidget>("groupBox_colors")->isVisible());
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
}

void TestPopups::menuOfAPad_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("filled");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("ticks");

    QTest::newRow("Remove by the mouse") << "mouse"
                                         << "3,0=1-2"
                                         << "PAD 2"
                                         << "1";
    QTest::newRow("Remove by the keyboard") << "keys"
                                            << "3,0=1-2"
                                            << "PAD 2"
                                            << "1";
    QTest::newRow("closed by Escape") << "Escape"
                                      << "1,0=1-1 3,0=1-2"
                                      << "1-1"
                                      << "0 1";
    QTest::newRow("closed by a click beside it") << "beside"
                                                 << "1,0=1-1 3,0=1-2"
                                                 << "1-1"
                                                 << "0 1";
}

void TestPopups::menuOfAPad()
{
    QFETCH(QString, how);
    QFETCH(QString, filled);
    QFETCH(QString, label);
    QFETCH(QString, ticks);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "1,0=0 3,0=1"));

    desk.hands.click(Places::cell(desk.pads(), 1), 3);
    desk.hands.await("the menu", [] { return openMenus() == QList<QStringList>{{"Remove"}}; });
    if (how == "mouse")
        desk.hands.pickEntry("Remove");
    else if (how == "beside")
        desk.hands.click(desk.on("label_4"));
    else
        desk.hands.key(how == "Escape" ? "Escape" : "Down");
    if (how == "keys")
        desk.hands.key("Return");
    desk.hands.awaitNoPopup();
    QVERIFY(desk.hands.play());

    QCOMPARE(Desk::filled(desk.pads()), filled);
    QCOMPARE(textOf(desk.space.pads()->index(1, 0)), label);
    QCOMPARE(desk.ticks(), ticks);
}

void TestPopups::emptyPadHasNoMenu()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "1,0=0"));
    desk.hands.click(Places::cell(desk.pads(), 2), 3);
    QVERIFY(desk.hands.play());
    QVERIFY(!QApplication::activePopupWidget());

    desk.hands.click(Places::cell(desk.pads(), 1), 3);
    desk.hands.await("the menu", [] { return !openMenus().isEmpty(); });
    desk.hands.key("Escape");
    desk.hands.awaitNoPopup();
    QVERIFY(desk.hands.play());
}

void TestPopups::menuOfAKey_data()
{
    QTest::addColumn<QString>("gestures");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("blink");
    QTest::addColumn<QString>("ticks");

    QTest::newRow("Remove by the mouse") << "Remove"
                                         << "PAD 19"
                                         << "-1"
                                         << ""
                                         << "1";
    QTest::newRow("Remove by the keyboard") << "Down Return"
                                            << "PAD 19"
                                            << "-1"
                                            << ""
                                            << "1";
    QTest::newRow("Blink by the mouse") << "Blink"
                                        << "1-1"
                                        << "0"
                                        << "1"
                                        << "0 1";
    QTest::newRow("Blink by the keyboard") << "Down Down Down Down Return"
                                           << "1-1"
                                           << "0"
                                           << "1"
                                           << "0 1";
    QTest::newRow("Set as Switch by the mouse") << "Set as Switch"
                                                << "SWITCH"
                                                << "-1"
                                                << ""
                                                << "1";
    QTest::newRow("Set as Switch by the keyboard") << "Up Return"
                                                   << "SWITCH"
                                                   << "-1"
                                                   << ""
                                                   << "1";
    QTest::newRow("closed by Escape") << "Escape"
                                      << "1-1"
                                      << "0"
                                      << ""
                                      << "0 1";
    QTest::newRow("closed by Escape on an entry") << "Down Down Escape"
                                                  << "1-1"
                                                  << "0"
                                                  << ""
                                                  << "0 1";
}

void TestPopups::menuOfAKey()
{
    QFETCH(QString, gestures);
    QFETCH(QString, text);
    QFETCH(QString, button);
    QFETCH(QString, blink);
    QFETCH(QString, ticks);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "4,4=0 4,5=1"));

    desk.hands.click(Places::cell(desk.grid(), 4, 4), 3);
    desk.hands.await("the menu", [] {
        return openMenus()
               == QList<QStringList>{{"Remove", "-", "Off Color", "On Color", "Blink", "-", "Set as Switch"}};
    });
    static const QRegularExpression keys("^(Down|Up|Return|Escape)\\b");
    if (keys.match(gestures).hasMatch()) {
        desk.hands.keys(gestures);
    } else {
        desk.hands.pickEntry(gestures);
    }
    desk.hands.awaitNoPopup();
    QVERIFY(desk.hands.play());

    const QModelIndex key = desk.space.grid()->index(4, 4);
    QCOMPARE(textOf(key), text);
    QCOMPARE(textOf(key, ButtonRole), button);
    QCOMPARE(textOf(key, BlinkRole), blink);
    QCOMPARE(desk.ticks(), ticks);
    if (text == "SWITCH") {
        QCOMPARE(textOf(key, AvailableRole), QString("0"));
        QVERIFY(desk.space.call("ontoggleaction_triggered")); // off again, for who comes next
    }
}

void TestPopups::paletteOfAKey_data()
{
    QTest::addColumn<QString>("submenu");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QStringList>("entries");
    const QStringList plain = {"✔default", "-", " black", " green", " red", " yellow"};
    const QStringList red = {" default", "-", " black", " green", "✔red", " yellow"};

    QTest::newRow("off colour by the mouse") << "Off Color" << int(OffColorRole) << " yellow"
                                             << ""
                                             << "yellow" << plain;
    QTest::newRow("on colour by the mouse") << "On Color" << int(OnColorRole) << " green"
                                            << ""
                                            << "green" << plain;
    QTest::newRow("off colour to the default") << "Off Color" << int(OffColorRole) << " default"
                                               << "red"
                                               << "" << red;
    QTest::newRow("on colour to the default") << "On Color" << int(OnColorRole) << " default"
                                              << "red"
                                              << "" << red;
    // The way in goes on the first entry, the default.
    QTest::newRow("off colour by the keyboard")
        << "Off Color" << int(OffColorRole) << "Down Down Right Down Down Return"
        << ""
        << "green" << plain;
    QTest::newRow("on colour by the keyboard")
        << "On Color" << int(OnColorRole) << "Down Down Down Right Down Down Return"
        << ""
        << "green" << plain;
    QTest::newRow("off colour by the keyboard from below")
        << "Off Color" << int(OffColorRole) << "Down Down Return Up Return"
        << "red"
        << "yellow" << red;
    QTest::newRow("given up by Escape")
        << "Off Color" << int(OffColorRole) << "Down Down Right Down Escape Escape"
        << "red"
        << "red" << red;
    QTest::newRow("left to the left, then given up")
        << "Off Color" << int(OffColorRole) << "Down Down Right Left Escape"
        << "red"
        << "red" << red;
}

void TestPopups::paletteOfAKey()
{
    QFETCH(QString, submenu);
    QFETCH(int, role);
    QFETCH(QString, how);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(QStringList, entries);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "4,4=0"));
    const QModelIndex key = desk.space.grid()->index(4, 4);
    QVERIFY(desk.space.grid()->setData(key, before, role));

    const auto awaitPalette = [&] {
        desk.hands.await("the palette", [entries] { return openMenus().value(1) == entries; });
    };
    desk.hands.click(Places::cell(desk.grid(), 4, 4), 3);
    desk.hands.await("the menu", [] { return openMenus().size() == 1; });
    if (how.startsWith(' ')) {
        desk.hands.openSubmenu(submenu);
        awaitPalette();
        desk.hands.pickEntry(how);
    } else {
        desk.hands.keys(how);
    }
    desk.hands.awaitNoPopup();
    QVERIFY(desk.hands.play());

    QCOMPARE(textOf(key, role), after);
    QCOMPARE(textOf(key, role == OffColorRole ? OnColorRole : OffColorRole), QString());
    QCOMPARE(textOf(key), QString("1-1"));
}

void TestPopups::anyColourOfAKey_data()
{
    QTest::addColumn<QString>("submenu");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("after");

    QTest::newRow("off colour, typed") << "Off Color" << int(OffColorRole) << ""
                                       << "Return"
                                       << "#3060c0";
    QTest::newRow("on colour, typed") << "On Color" << int(OnColorRole) << "#ff0000"
                                      << "Return"
                                      << "#3060c0";
    QTest::newRow("off colour, typed, then OK by the mouse") << "Off Color" << int(OffColorRole) << "#ff0000"
                                                             << "OK"
                                                             << "#3060c0";
    QTest::newRow("off colour, given up by Escape") << "Off Color" << int(OffColorRole) << "#ff0000"
                                                    << "Escape"
                                                    << "#ff0000";
    QTest::newRow("on colour, given up by the mouse") << "On Color" << int(OnColorRole) << ""
                                                      << "Cancel"
                                                      << "";
}

void TestPopups::anyColourOfAKey()
{
    QFETCH(QString, submenu);
    QFETCH(int, role);
    QFETCH(QString, before);
    QFETCH(QString, how);
    QFETCH(QString, after);
    Desk &desk = *m_desk;
    const int device = desk.space.find<QComboBox>("devicescombo")->findText("Novation Launchpad MKII");
    QVERIFY(desk.clearKeys(device));
    QVERIFY(desk.lay(desk.grid(), "4,4=0"));
    const QModelIndex key = desk.space.grid()->index(4, 4);
    QVERIFY(desk.space.grid()->setData(key, before, role));

    desk.hands.click(Places::cell(desk.grid(), 4, 4), 3);
    desk.hands.openSubmenu(submenu);
    desk.hands.pickEntry("Select ...");
    desk.hands.awaitDialog("Choose a Color");
    desk.hands.keys("alt+h ctrl+a"); // the field HTML
    desk.hands.type("#3060c0");
    if (how == "Return" || how == "Escape")
        desk.hands.key(how);
    else
        desk.hands.click(Places::dialogButton(how));
    desk.hands.await("the dialog closes", [] { return !QApplication::activeModalWidget(); });
    QVERIFY(desk.hands.play());

    QCOMPARE(textOf(key, role), after);
    QCOMPARE(textOf(key, role == OffColorRole ? OnColorRole : OffColorRole), QString());
}

void TestPopups::menuHoldsForAllSelectedKeys()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "4,4=0 4,5=1 4,6=2"));
    QVERIFY(desk.space.grid()->setData(desk.space.grid()->index(4, 4), "1", BlinkRole));

    desk.hands.click(Places::cell(desk.grid(), 4, 4));
    desk.hands.hold("ctrl");
    desk.hands.click(Places::cell(desk.grid(), 4, 6));
    desk.hands.letGo("ctrl");
    desk.hands.click(Places::cell(desk.grid(), 4, 6), 3); // which does not blink
    desk.hands.pickEntry("Blink");
    desk.hands.awaitNoPopup();
    QVERIFY(desk.hands.play());
    QCOMPARE(textOf(desk.space.grid()->index(4, 4), BlinkRole), QString("1"));
    QCOMPARE(textOf(desk.space.grid()->index(4, 5), BlinkRole), QString());
    QCOMPARE(textOf(desk.space.grid()->index(4, 6), BlinkRole), QString("1"));

    desk.hands.click(Places::cell(desk.grid(), 4, 6), 3);
    desk.hands.pickEntry("Remove");
    desk.hands.awaitNoPopup();
    QVERIFY(desk.hands.play());
    QCOMPARE(Desk::filled(desk.grid()), QString("4,5=1-2"));
    QCOMPARE(desk.ticks(), QString("1"));
}

void TestPopups::switchMoves()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    const auto toggle = [&desk](int row, int col, const QString &entry) {
        desk.hands.click(Places::cell(desk.grid(), row, col), 3);
        desk.hands.await("the menu of an empty key", [entry] {
            return openMenus() == QList<QStringList>{{"-", entry}};
        });
        desk.hands.pickEntry("Set as Switch");
        desk.hands.awaitNoPopup();
        return desk.hands.play();
    };
    QVERIFY(toggle(2, 2, "Set as Switch"));
    QCOMPARE(textOf(desk.space.grid()->index(2, 2)), QString("SWITCH"));
    QVERIFY(toggle(11, 9, "Set as Switch"));
    QCOMPARE(textOf(desk.space.grid()->index(2, 2)), QString("PAD 1"));
    QCOMPARE(textOf(desk.space.grid()->index(11, 9)), QString("SWITCH"));
    QVERIFY(toggle(11, 9, "Set as Switch*"));
    QCOMPARE(textOf(desk.space.grid()->index(11, 9)), QString("BOTTOM 8"));
    QCOMPARE(desk.space.leftOnGrid(), QString());
}

void TestPopups::rename_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("text");

    QTest::newRow("accepted by Enter") << "big finale"
                                       << "Return"
                                       << "big finale";
    QTest::newRow("accepted by the Enter of the number pad") << "big finale"
                                                             << "KP_Enter"
                                                             << "big finale";
    QTest::newRow("accepted by Tab") << "big finale"
                                     << "Tab"
                                     << "big finale";
    QTest::newRow("accepted by a click on another pad") << "big finale"
                                                        << "another pad"
                                                        << "big finale";
    QTest::newRow("accepted by a click on a Live Button") << "big finale"
                                                          << "Live Button"
                                                          << "big finale";
    QTest::newRow("accepted by a click into a field") << "big finale"
                                                      << "padsname"
                                                      << "big finale";
    QTest::newRow("accepted by a click on another bank's list") << "big finale"
                                                                << "bankcombo"
                                                                << "big finale";
    QTest::newRow("given up by Escape") << "big finale"
                                        << "Escape"
                                        << "1-1";
    QTest::newRow("emptied") << ""
                             << "Return"
                             << "PAD 2";
    QTest::newRow("as it was") << "1-1"
                               << "Return"
                               << "1-1";
}

void TestPopups::rename()
{
    QFETCH(QString, typed);
    QFETCH(QString, end);
    QFETCH(QString, text);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "1,0=0"));
    const auto editor = [&desk] { return desk.pads()->viewport()->findChild<QLineEdit *>(); };

    desk.hands.doubleClick(Places::cell(desk.pads(), 1));
    desk.hands.await("the editor", [editor] { return editor() && editor()->hasFocus(); });
    desk.hands.keys("ctrl+a BackSpace");
    if (!typed.isEmpty())
        desk.hands.type(typed);
    if (end == "another pad")
        desk.hands.click(Places::cell(desk.pads(), 4));
    else if (end == "Live Button")
        desk.hands.click(Places::cell(desk.list(), 3));
    else if (end == "bankcombo")
        desk.hands.openList(desk.space.find<QComboBox>("bankcombo"));
    else if (end == "padsname")
        desk.hands.click(desk.on("padsname"));
    else
        desk.hands.key(end);
    if (end == "bankcombo")
        desk.hands.key("Escape");
    desk.hands.await("the editor closes", [editor] { return !editor(); });
    desk.hands.awaitNoPopup();
    QVERIFY(desk.hands.play());

    QCOMPARE(Desk::filled(desk.pads()), "1,0=" + text);
    QCOMPARE(textOf(desk.space.pads()->index(1, 0), DisplayNameRole), QString("1-1"));
    QCOMPARE(desk.foreignCell(desk.pads()), QString());
    QCOMPARE(desk.ticks(), QString("0"));
}

/** The mouse takes the focus from no editor when it opens a menu. */
void TestPopups::menuTakesOverTheTextOfAPad()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "0,0=0"));
    desk.hands.doubleClick(Places::cell(desk.pads(), 0));
    desk.hands.await("the editor", [&desk] { return desk.pads()->viewport()->findChild<QLineEdit *>(); });
    desk.hands.key("ctrl+a");
    desk.hands.type("typed");
    desk.hands.click(Places::menuTitle(&desk.space.window(), "File"));
    desk.hands.pickEntry("Export");
    desk.hands.awaitDialog("Pads Page OS2L DMX is created.");
    desk.hands.key("Return");
    desk.hands.await("the notice closes", [&desk] { return desk.isAtRest(); });
    QVERIFY(desk.hands.play());
    QVERIFY(bytesOf(desk.space.padsFolder() + "/OS2L DMX.xml").contains("get_text &apos;typed&apos;"));
}

void TestPopups::whatCannotBeRenamed_data()
{
    QTest::addColumn<QString>("what");

    QTest::newRow("empty pad") << "pad";
    QTest::newRow("Live Button") << "button";
    QTest::newRow("key") << "key";
}

void TestPopups::whatCannotBeRenamed()
{
    QFETCH(QString, what);
    Desk &desk = *m_desk;
    QVERIFY(what == "key" ? desk.clearKeys() : desk.clearPads());
    QVERIFY(what == "key" ? desk.lay(desk.grid(), "2,2=0") : desk.lay(desk.pads(), "1,0=0"));
    const QTableView *view = what == "pad" ? desk.pads() : what == "key" ? desk.grid() : desk.list();
    const QStringList before = desk.space.snapshot();

    desk.hands.doubleClick(Places::cell(view, 2, what == "key" ? 2 : 0));
    QVERIFY(desk.hands.play());
    QVERIFY(!view->viewport()->findChild<QLineEdit *>());
    desk.hands.type("x");
    desk.hands.key("Return");
    QVERIFY(desk.hands.play());
    QVERIFY(!view->viewport()->findChild<QLineEdit *>());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestPopups::toolTips_data()
{
    QTest::addColumn<QString>("over");
    QTest::addColumn<QString>("text");

    QTest::newRow("Live Button") << "button"
                                 << "Drag a Live Button and Drop to a VirtualDJ  Pad";
    QTest::newRow("filled pad")
        << "pad"
        << "PAD 2 \nLive Button: 1-1 \nDisplay Text: 1-1\n\nDouble-click to edit Text\n"
           "Right-click to Remove";
    QTest::newRow("filled key") << "key"
                                << "PAD 1<br>Live Button: 1-1<br><br>Right-click to Remove";
    QTest::newRow("Clean of the pads") << "cleanpads_button"
                                       << "Clean content from All Pads";
    QTest::newRow("Clean of the keys") << "cleanmidi_button"
                                       << "Clean content from All Buttons";
}

void TestPopups::toolTips()
{
    QFETCH(QString, over);
    QFETCH(QString, text);
    Desk &desk = *m_desk;
    const bool areKeys = over == "key" || over == "cleanmidi_button";
    QVERIFY(areKeys ? desk.clearKeys() : desk.clearPads());
    QVERIFY(areKeys ? desk.lay(desk.grid(), "2,2=0") : desk.lay(desk.pads(), "1,0=0"));

    if (over == "button")
        desk.hands.moveTo(Places::cell(desk.list(), 2));
    else if (over == "pad")
        desk.hands.moveTo(Places::cell(desk.pads(), 1));
    else if (over == "key")
        desk.hands.moveTo(Places::cell(desk.grid(), 2, 2));
    else
        desk.hands.moveTo(desk.on(qPrintable(over)));
    desk.hands.await("the tool tip", [text] { return QToolTip::isVisible() && QToolTip::text() == text; });
    QVERIFY(desk.hands.play());
}

QTEST_MAIN(TestPopups)
#include "test_popups.moc"
