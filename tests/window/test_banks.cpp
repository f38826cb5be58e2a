#include "support/texts.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

namespace {

const QStringList DefaultNames = {"BANK 1", "BANK 2", "BANK 3", "BANK 4",
                                  "BANK 5", "BANK 6", "BANK 7", "BANK 8"};

QString textOf(Workspace &space, const char *edit)
{
    return space.find<QLineEdit>(edit)->text();
}

/** Types over a line edit and ends it as a user does: by Enter, by Tab, or by a click on something else. */
bool typeAndLeave(Workspace &space, const char *edit, const QString &text, const QByteArray &by)
{
    if (!space.type(edit, text))
        return false;
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

} // namespace

/** The panel that picks a bank, names it, and chooses between 8 and 16 pads; and the name of the page. */
class TestBanks final : public QObject
{
    Q_OBJECT

private slots:
    void refillingTheComboShowsTheFirstBank();
    void bankShowsItsRows();
    void noBankIsHarmless();

    void namesAreTakenOver_data();
    void namesAreTakenOver();
    void namesGoAsTheyAre_data();
    void namesGoAsTheyAre();
    void renamesTheBankThatWasLeft();
    void unfinishedNameIsForgotten();
    void resetsShowTheFirstBank();

    void layoutSlots_data();
    void layoutSlots();
    void checkingByProgramHidesNothing();
};

void TestBanks::refillingTheComboShowsTheFirstBank()
{
    Workspace space;
    QVERIFY(space.choose("bankcombo", 5));
    QVERIFY(space.call("updatebankcombo"));
    QCOMPARE(space.find<QComboBox>("bankcombo")->count(), 8);
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(textOf(space, "bankname"), DefaultNames.first());
    QCOMPARE(firstRowShown(space), 0);
}

void TestBanks::bankShowsItsRows()
{
    Workspace space;
    for (const char *slot : {"showbank", "on_bankcombo_currentIndexChanged"}) {
        for (int bank = 7; bank >= 0; --bank) {
            QVERIFY(space.call(slot, bank));
            QCOMPARE(firstRowShown(space), 8 * bank);
            QCOMPARE(textOf(space, "bankname"), DefaultNames.at(bank));
            QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
        }
    }
}

void TestBanks::noBankIsHarmless()
{
    for (const int bank : {-1, 8, 1000000}) {
        Workspace space;
        QVERIFY(space.call("showbank", bank));
        QCOMPARE(textOf(space, "bankname"), QString());
        space.find<QComboBox>("bankcombo")->setCurrentIndex(-1);
        QVERIFY(space.call("on_bankname_editingFinished"));
        QVERIFY(space.choose("bankcombo", 0));
        QCOMPARE(firstRowShown(space), 0);
        QCOMPARE(space.bankNames(), DefaultNames);
    }
}

void TestBanks::namesAreTakenOver_data()
{
    QTest::addColumn<QByteArray>("by");
    for (const char *by : {"Enter", "keypad Enter", "Tab", "a click elsewhere"})
        QTest::newRow(by) << QByteArray(by);
}

void TestBanks::namesAreTakenOver()
{
    QFETCH(QByteArray, by);
    Workspace space;
    QVERIFY(space.choose("bankcombo", 2));
    QStringList names = DefaultNames;
    for (const char *name : {"Slow Songs", ""}) {
        QVERIFY(typeAndLeave(space, "bankname", name, by));
        names[2] = name;
        QCOMPARE(space.bankNames(), names);
    }
    QVERIFY(typeAndLeave(space, "padsname", "My Page", by));
    QCOMPARE(textOf(space, "padsname"), QString("My Page"));
    QVERIFY(typeAndLeave(space, "padsname", "", by));
    QCOMPARE(textOf(space, "padsname"), Texts::PageName); // a page has a name
    QCOMPARE(space.bankNames(), names);
}

void TestBanks::namesGoAsTheyAre_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("one blank") << " ";
    QTest::newRow("blanks around") << "  Intro  ";
    QTest::newRow("quotes and brackets") << "It's \"loud\" & <bright>";
    QTest::newRow("another bank's name") << "BANK 7";
    QTest::newRow("a slash") << "sub/page";
    QTest::newRow("long") << QString(300, 'x');
}

void TestBanks::namesGoAsTheyAre()
{
    QFETCH(QString, name);
    Workspace space;
    QVERIFY(space.choose("bankcombo", 7) && typeAndLeave(space, "bankname", name, "Enter"));
    QCOMPARE(space.bankNames(), DefaultNames.mid(0, 7) + QStringList{name});
    QVERIFY(typeAndLeave(space, "padsname", name, "Tab"));
    QCOMPARE(textOf(space, "padsname"), name);
}

void TestBanks::renamesTheBankThatWasLeft()
{
    Workspace space;
    QVERIFY(space.choose("bankcombo", 2) && space.type("bankname", "Slow Songs"));
    QVERIFY(space.choose("bankcombo", 3)); // going to the combo box ends the typing
    QCOMPARE(textOf(space, "bankname"), QString("BANK 4"));
    QCOMPARE(space.bankNames(), DefaultNames.mid(0, 2) + QStringList{"Slow Songs"} + DefaultNames.mid(3));
}

void TestBanks::unfinishedNameIsForgotten()
{
    Workspace space;
    QVERIFY(space.type("bankname", "Half a na"));
    QVERIFY(space.call("showbank", 0));
    QCOMPARE(textOf(space, "bankname"), DefaultNames.first());
}

/** Its name, too, where it was on show already. */
void TestBanks::resetsShowTheFirstBank()
{
    Workspace space;
    QVERIFY(typeAndLeave(space, "bankname", "First", "Tab"));
    for (const char *slot : {"on_actionNew_2_triggered", "on_cleanpads_button_clicked"}) {
        for (const int bank : {0, 5}) {
            QVERIFY(space.choose("bankcombo", bank));
            space.find<QLineEdit>("bankname")->setText("not what the bank is called");
            QVERIFY(space.call(slot));
            QCOMPARE(textOf(space, "bankname"), QString("First"));
            QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
            QCOMPARE(firstRowShown(space), 0);
            QCOMPARE(space.bankNames(), QStringList{"First"} + DefaultNames.mid(1));
        }
    }
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
    QTest::newRow("16 checked shows") << sixteen << true << true << false;
    QTest::newRow("16 checked, shown before") << sixteen << true << false << false;
    QTest::newRow("16 not checked does nothing") << sixteen << false << true << true;
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
    QVERIFY(!space.padsView()->isColumnHidden(0));
    QVERIFY(space.find<QRadioButton>("radioButton_8pads")->isChecked());
}

void TestBanks::checkingByProgramHidesNothing()
{
    Workspace space;
    space.find<QRadioButton>("radioButton_16pads")->setChecked(true);
    QVERIFY(space.padsView()->isColumnHidden(1));
}

QTEST_MAIN(TestBanks)
#include "test_banks.moc"
