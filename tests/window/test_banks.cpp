#include "support/workspace.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

namespace {

const char DefaultNames[] = "BANK 1|BANK 2|BANK 3|BANK 4|BANK 5|BANK 6|BANK 7|BANK 8";

QString bankName(Workspace &space)
{
    return space.find<QLineEdit>("bankname")->text();
}

/** Ends typing in a line edit as a user does: by Enter, by Tab, or by a click on something else. */
bool leave(Workspace &space, const char *edit, const QByteArray &by)
{
    auto *field = space.find<QLineEdit>(edit);
    if (by == "Enter")
        QTest::keyClick(field, Qt::Key_Return);
    else if (by == "keypad Enter")
        QTest::keyClick(field, Qt::Key_Enter);
    else if (by == "Tab")
        QTest::keyClick(field, Qt::Key_Tab);
    else
        QTest::mouseClick(space.padsView()->viewport(), Qt::LeftButton, {}, {20, 20});
    return field->hasFocus() == by.endsWith("Enter");
}

/** The row of the first pad that the table shows, when it shows eight in a row and no more; else -1. */
int firstRowShown(Workspace &space)
{
    QList<int> rows;
    for (int row = 0; row < space.pads()->rowCount(); ++row) {
        if (!space.padsView()->isRowHidden(row))
            rows.append(row);
    }
    return rows.size() == 8 && rows.last() - rows.first() == 7 ? rows.first() : -1;
}

void addWaysToLeave()
{
    QTest::addColumn<QByteArray>("by");
    for (const QByteArray by : {"Enter", "keypad Enter", "Tab", "a click elsewhere"})
        QTest::newRow(by) << by;
}

} // namespace

/** The panel that picks a bank, names it, and chooses between 8 and 16 pads; and the name of the page. */
class TestBanks final : public QObject
{
    Q_OBJECT

private slots:
    void startsAtTheFirstBank();
    void comboCountsBanks();
    void refillingTheComboShowsTheFirstBank();

    void bankShowsItsRows_data();
    void bankShowsItsRows();
    void slotsShowABank_data();
    void slotsShowABank();
    void noBankIsHarmless_data();
    void noBankIsHarmless();

    void renames_data();
    void renames();
    void renamesTheBankThatWasLeft();
    void namesGoAsTheyAre_data();
    void namesGoAsTheyAre();
    void clearedNameStaysEmpty_data();
    void clearedNameStaysEmpty();
    void unfinishedNameIsForgotten();
    void resetsShowTheFirstBank_data();
    void resetsShowTheFirstBank();

    void guardsThePageName_data();
    void guardsThePageName();
    void pageNamesGoAsTheyAre_data();
    void pageNamesGoAsTheyAre();

    void layoutHidesTheSecondColumn();
    void hiddenPadsStayAssigned();
    void layoutSlots_data();
    void layoutSlots();
    void checkingByProgramHidesNothing();
    void layoutHoldsForAllBanks();
};

void TestBanks::startsAtTheFirstBank()
{
    Workspace space;
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(bankName(space), QString("BANK 1"));
    QCOMPARE(space.bankNames().join("|"), QString(DefaultNames));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("OS2L DMX"));
    QCOMPARE(firstRowShown(space), 0);
    QVERIFY(space.find<QRadioButton>("radioButton_8pads")->isChecked());
    QVERIFY(!space.find<QRadioButton>("radioButton_16pads")->isChecked());
    QVERIFY(!space.padsView()->isColumnHidden(0));
    QVERIFY(space.padsView()->isColumnHidden(1));
}

void TestBanks::comboCountsBanks()
{
    Workspace space;
    auto *combo = space.find<QComboBox>("bankcombo");
    QCOMPARE(combo->count(), 8);
    for (int i = 0; i < 8; ++i) {
        QCOMPARE(combo->itemText(i), QString::number(i + 1));
        QVERIFY(combo->itemIcon(i).isNull());
        QVERIFY(!combo->itemData(i).isValid());
        QCOMPARE(combo->itemData(i, Qt::SizeHintRole).toSize(), QSize(25, 25));
    }
}

void TestBanks::refillingTheComboShowsTheFirstBank()
{
    Workspace space;
    QVERIFY(space.choose("bankcombo", 5));
    QVERIFY(space.call("updatebankcombo"));
    QCOMPARE(space.find<QComboBox>("bankcombo")->count(), 8);
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentText(), QString("1"));
    QCOMPARE(bankName(space), QString("BANK 1"));
    QCOMPARE(firstRowShown(space), 0);
}

void TestBanks::bankShowsItsRows_data()
{
    QTest::addColumn<int>("bank");
    QTest::addColumn<int>("first");
    QTest::addColumn<QString>("name");
    QTest::newRow("bank 1") << 0 << 0 << "BANK 1";
    QTest::newRow("bank 2") << 1 << 8 << "BANK 2";
    QTest::newRow("bank 3") << 2 << 16 << "BANK 3";
    QTest::newRow("bank 4") << 3 << 24 << "BANK 4";
    QTest::newRow("bank 5") << 4 << 32 << "BANK 5";
    QTest::newRow("bank 6") << 5 << 40 << "BANK 6";
    QTest::newRow("bank 7") << 6 << 48 << "BANK 7";
    QTest::newRow("bank 8") << 7 << 56 << "BANK 8";
}

void TestBanks::bankShowsItsRows()
{
    QFETCH(int, bank);
    QFETCH(int, first);
    QFETCH(QString, name);

    Workspace space;
    QVERIFY(space.choose("bankcombo", 7 - bank));
    QVERIFY(space.choose("bankcombo", bank));
    QCOMPARE(firstRowShown(space), first);
    QCOMPARE(bankName(space), name);
    QCOMPARE(space.pads()->rowCount(), 64);
}

void TestBanks::slotsShowABank_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::newRow("showbank") << QByteArray("showbank");
    QTest::newRow("of the combo box") << QByteArray("on_bankcombo_currentIndexChanged");
}

void TestBanks::slotsShowABank()
{
    QFETCH(QByteArray, slot);

    Workspace space;
    QVERIFY(space.call(slot, 7));
    QCOMPARE(firstRowShown(space), 56);
    QCOMPARE(bankName(space), QString("BANK 8"));
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QVERIFY(space.call(slot, 0));
    QCOMPARE(firstRowShown(space), 0);
    QCOMPARE(bankName(space), QString("BANK 1"));
}

void TestBanks::noBankIsHarmless_data()
{
    QTest::addColumn<int>("bank");
    QTest::newRow("below zero") << -1;
    QTest::newRow("ninth") << 8;
    QTest::newRow("far off") << 1000000;
}

void TestBanks::noBankIsHarmless()
{
    QFETCH(int, bank);

    Workspace space;
    QVERIFY(space.call("showbank", bank));
    QCOMPARE(bankName(space), QString());
    space.find<QComboBox>("bankcombo")->setCurrentIndex(-1);
    QVERIFY(space.call("on_bankname_editingFinished"));
    QVERIFY(space.choose("bankcombo", 0));
    QCOMPARE(firstRowShown(space), 0);
    QCOMPARE(space.bankNames().join("|"), QString(DefaultNames));
}

void TestBanks::renames_data()
{
    addWaysToLeave();
}

void TestBanks::renames()
{
    QFETCH(QByteArray, by);

    Workspace space;
    QVERIFY(space.choose("bankcombo", 2));
    QVERIFY(space.type("bankname", "Slow Songs"));
    QVERIFY(leave(space, "bankname", by));

    QVERIFY(space.choose("bankcombo", 3));
    QCOMPARE(bankName(space), QString("BANK 4"));
    QVERIFY(space.choose("bankcombo", 2));
    QCOMPARE(bankName(space), QString("Slow Songs"));
    QCOMPARE(space.bankNames().join("|"),
             QString("BANK 1|BANK 2|Slow Songs|BANK 4|BANK 5|BANK 6|BANK 7|BANK 8"));
}

void TestBanks::renamesTheBankThatWasLeft()
{
    Workspace space;
    QVERIFY(space.choose("bankcombo", 2));
    QVERIFY(space.type("bankname", "Slow Songs"));
    QVERIFY(space.choose("bankcombo", 3)); // going to the combo box ends the typing
    QCOMPARE(bankName(space), QString("BANK 4"));
    QCOMPARE(space.bankNames().join("|"),
             QString("BANK 1|BANK 2|Slow Songs|BANK 4|BANK 5|BANK 6|BANK 7|BANK 8"));
}

void TestBanks::namesGoAsTheyAre_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("one blank") << " ";
    QTest::newRow("blanks around") << "  Intro  ";
    QTest::newRow("quotes and brackets") << "It's \"loud\" & <bright>";
    QTest::newRow("another bank's name") << "BANK 7";
    QTest::newRow("long") << QString(300, 'x');
}

void TestBanks::namesGoAsTheyAre()
{
    QFETCH(QString, name);

    Workspace space;
    QVERIFY(space.choose("bankcombo", 7));
    QVERIFY(space.type("bankname", name));
    QVERIFY(leave(space, "bankname", "Enter"));
    QVERIFY(space.choose("bankcombo", 0));
    QCOMPARE(bankName(space), QString("BANK 1"));
    QVERIFY(space.choose("bankcombo", 7));
    QCOMPARE(bankName(space), name);
}

void TestBanks::clearedNameStaysEmpty_data()
{
    addWaysToLeave();
}

void TestBanks::clearedNameStaysEmpty()
{
    QFETCH(QByteArray, by);

    Workspace space;
    QVERIFY(space.choose("bankcombo", 1));
    QVERIFY(space.type("bankname", ""));
    QVERIFY(leave(space, "bankname", by));
    QCOMPARE(bankName(space), QString());
    QVERIFY(space.choose("bankcombo", 0));
    QVERIFY(space.choose("bankcombo", 1));
    QCOMPARE(bankName(space), QString());
    QCOMPARE(space.bankNames().join("|"), QString("BANK 1||BANK 3|BANK 4|BANK 5|BANK 6|BANK 7|BANK 8"));
}

void TestBanks::unfinishedNameIsForgotten()
{
    Workspace space;
    QVERIFY(space.type("bankname", "Half a na"));
    QVERIFY(space.call("showbank", 0));
    QCOMPARE(bankName(space), QString("BANK 1"));
}

void TestBanks::resetsShowTheFirstBank_data()
{
    QTest::addColumn<QByteArray>("reset");
    QTest::addColumn<bool>("startsAtTheFirst");
    for (const bool startsAtTheFirst : {false, true}) {
        const char *start = startsAtTheFirst ? "from bank 1" : "from bank 6";
        QTest::addRow("new project, %s", start) << QByteArray("actionNew_2") << startsAtTheFirst;
        QTest::addRow("clean, %s", start) << QByteArray("cleanpads_button") << startsAtTheFirst;
    }
}

void TestBanks::resetsShowTheFirstBank()
{
    QFETCH(QByteArray, reset);
    QFETCH(bool, startsAtTheFirst);

    Workspace space;
    QVERIFY(space.type("bankname", "First"));
    QVERIFY(leave(space, "bankname", "Tab"));
    if (!startsAtTheFirst)
        QVERIFY(space.choose("bankcombo", 5));
    space.find<QLineEdit>("bankname")->setText("not what the bank is called");

    if (reset == "actionNew_2")
        space.trigger(reset);
    else
        QVERIFY(space.click(reset));
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(bankName(space), QString("First"));
    QCOMPARE(firstRowShown(space), 0);
    QCOMPARE(space.bankNames().join("|"), QString("First|BANK 2|BANK 3|BANK 4|BANK 5|BANK 6|BANK 7|BANK 8"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestBanks::guardsThePageName_data()
{
    addWaysToLeave();
}

void TestBanks::guardsThePageName()
{
    QFETCH(QByteArray, by);

    Workspace space;
    QVERIFY(space.type("padsname", "My Page"));
    QVERIFY(leave(space, "padsname", by));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("My Page"));
    QVERIFY(space.type("padsname", ""));
    QVERIFY(leave(space, "padsname", by));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("OS2L DMX"));
    QCOMPARE(space.bankNames().join("|"), QString(DefaultNames));
}

void TestBanks::pageNamesGoAsTheyAre_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("one blank") << " ";
    QTest::newRow("blanks") << "   ";
    QTest::newRow("quotes and brackets") << "It's \"loud\" & <bright>";
    QTest::newRow("a slash") << "sub/page";
}

void TestBanks::pageNamesGoAsTheyAre()
{
    QFETCH(QString, name);

    Workspace space;
    QVERIFY(space.type("padsname", name));
    QVERIFY(leave(space, "padsname", "Tab"));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), name);
}

void TestBanks::layoutHidesTheSecondColumn()
{
    Workspace space;
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.find<QRadioButton>("radioButton_16pads")->isChecked());
    QVERIFY(!space.find<QRadioButton>("radioButton_8pads")->isChecked());
    QVERIFY(!space.padsView()->isColumnHidden(0));
    QVERIFY(!space.padsView()->isColumnHidden(1));
    QVERIFY(space.click("radioButton_8pads"));
    QVERIFY(space.find<QRadioButton>("radioButton_8pads")->isChecked());
    QVERIFY(!space.padsView()->isColumnHidden(0));
    QVERIFY(space.padsView()->isColumnHidden(1));
}

void TestBanks::hiddenPadsStayAssigned()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.putOnPad(6, 3, 1)); // the twelfth pad
    const QModelIndex pad = space.pads()->index(3, 1);

    QVERIFY(space.click("radioButton_8pads"));
    QVERIFY(space.padsView()->isColumnHidden(1));
    QCOMPARE(pad.data(ButtonRole).toString(), QString("6"));
    QCOMPARE(pad.data().toString(), QString("1-7"));
    QVERIFY(!space.ask<bool>("isVDJempty"));
    QVERIFY(space.isTicked(6));

    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(!space.padsView()->isColumnHidden(1));
    QCOMPARE(pad.data(ButtonRole).toString(), QString("6"));
}

void TestBanks::layoutSlots_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("isHiddenBefore");
    QTest::addColumn<bool>("isHidden");
    const QByteArray eight = "on_radioButton_8pads_clicked";
    const QByteArray sixteen = "on_radioButton_16pads_clicked";
    QTest::newRow("8 checked hides") << eight << true << false << true;
    QTest::newRow("8 checked, hidden before") << eight << true << true << true;
    QTest::newRow("8 not checked does nothing") << eight << false << false << false;
    QTest::newRow("8 not checked does nothing, hidden before") << eight << false << true << true;
    QTest::newRow("16 checked shows") << sixteen << true << true << false;
    QTest::newRow("16 checked, shown before") << sixteen << true << false << false;
    QTest::newRow("16 not checked does nothing") << sixteen << false << true << true;
    QTest::newRow("16 not checked does nothing, shown before") << sixteen << false << false << false;
}

void TestBanks::layoutSlots()
{
    QFETCH(QByteArray, slot);
    QFETCH(bool, checked);
    QFETCH(bool, isHiddenBefore);
    QFETCH(bool, isHidden);

    Workspace space;
    space.padsView()->setColumnHidden(1, isHiddenBefore);
    QVERIFY(space.call(slot, checked));
    QCOMPARE(space.padsView()->isColumnHidden(1), isHidden);
    QVERIFY(space.find<QRadioButton>("radioButton_8pads")->isChecked());
}

void TestBanks::checkingByProgramHidesNothing()
{
    Workspace space;
    space.find<QRadioButton>("radioButton_16pads")->setChecked(true);
    QVERIFY(space.padsView()->isColumnHidden(1));
}

void TestBanks::layoutHoldsForAllBanks()
{
    Workspace space;
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.choose("bankcombo", 4));
    QVERIFY(!space.padsView()->isColumnHidden(1));
    QVERIFY(space.click("radioButton_8pads"));
    QCOMPARE(firstRowShown(space), 32);
    QVERIFY(space.padsView()->isColumnHidden(1));
}

QTEST_MAIN(TestBanks)
#include "test_banks.moc"
