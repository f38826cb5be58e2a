#include "support/workspace.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHelpEvent>
#include <QScrollBar>
#include <QStyleFactory>
#include <QTextDocument>
#include <QToolTip>

#include <array>

/** The combo boxes and their lists, which look and behave the same under every style. */
class TestCombos final : public QObject
{
    Q_OBJECT

private slots:
    void items_data();
    void items();
    void list_data();
    void list();
    void longNameLosesItsMiddle();
    void toolTipHasTheWholeName_data();
    void toolTipHasTheWholeName();
};

namespace {

constexpr std::array<const char *, 6> Combos = {"combobox",    "bankcombo",      "devicescombo",
                                                "mididevices", "combo_offcolor", "combo_oncolor"};
constexpr int RowHeight = 25;
constexpr int MostRows = 10;
const QColor Dark("#202020");
const QColor Current("#505050");

/** A combo box of the window with other entries, in sight. */
QComboBox *comboWith(Workspace &space, const char *name, const QStringList &entries)
{
    auto *combo = space.find<QComboBox>(name);
    if (combo->objectName() != "combobox" && combo->objectName() != "bankcombo"
        && !space.click("radio_outputmidi"))
        return nullptr;
    const QSignalBlocker silence(combo);
    combo->clear();
    for (const QString &entry : entries) {
        combo->addItem(entry);
        combo->setItemData(combo->count() - 1, QSize(RowHeight, RowHeight), Qt::SizeHintRole);
    }
    return combo;
}

QImage boxWith(Workspace &space, const QString &text)
{
    return comboWith(space, "mididevices", {text})->grab().toImage();
}

} // namespace

void TestCombos::items_data()
{
    QTest::addColumn<bool>("hasPictures");
    for (const char *name : Combos)
        QTest::newRow(name) << QByteArray(name).endsWith("color");
}

/** Texts in tall rows, and nothing kept beside them; colours alone have pictures. */
void TestCombos::items()
{
    QFETCH(const bool, hasPictures);
    Workspace space;
    QVERIFY(space.loadSomeShow());
    const auto *combo = space.find<QComboBox>(QTest::currentDataTag());
    QVERIFY(combo->count() > 1);
    for (int i = 0; i < combo->count(); ++i) {
        QCOMPARE(combo->itemData(i, Qt::SizeHintRole).toSize(), QSize(RowHeight, RowHeight));
        QCOMPARE(combo->itemIcon(i).isNull(), !hasPictures);
        QVERIFY(!combo->itemData(i).isValid());
    }
}

void TestCombos::list_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("entries");
    for (const QString &style : QStyleFactory::keys()) {
        for (const char *name : Combos) {
            for (const int entries : {1, MostRows, 40})
                QTest::newRow(qPrintable(QString("%1, %2 of %3").arg(name).arg(entries).arg(style)))
                    << style << QByteArray(name) << entries;
        }
    }
}

void TestCombos::list()
{
    QFETCH(const QString, style);
    QFETCH(const QByteArray, name);
    QFETCH(const int, entries);
    QApplication::setStyle(style);
    Workspace space;
    QStringList texts;
    for (int i = 1; i <= entries; ++i)
        texts += QString::number(i);
    auto *combo = comboWith(space, name, texts);
    QVERIFY(combo);
    combo->showPopup();
    QAbstractItemView *list = combo->view();
    const QWidget *popup = list->window();
    QTRY_VERIFY(popup->isVisible());

    QCOMPARE(popup->y(), combo->mapToGlobal(combo->rect().bottomLeft()).y());
    const int rows = qMin(entries, MostRows);
    for (int row = 0; row < rows; ++row)
        QCOMPARE(list->visualRect(list->model()->index(row, 0)).height(), RowHeight);
    QVERIFY(list->viewport()->height() >= rows * RowHeight);
    QVERIFY(list->viewport()->height() < (rows + 1) * RowHeight);

    const QImage picture = list->viewport()->grab().toImage();
    const int end = picture.width() - 3;
    QCOMPARE(picture.pixelColor(end, RowHeight / 2).name(), Current.name());
    QCOMPARE(picture.pixelColor(end, 0).name(), Current.name());
    if (entries > 1)
        QCOMPARE(picture.pixelColor(end, RowHeight * 3 / 2).name(), Dark.name());

    const QScrollBar *bar = list->verticalScrollBar();
    QCOMPARE(bar->isVisible(), entries > MostRows);
    if (entries > MostRows) {
        QCOMPARE(bar->width(), 20);
        const QImage handle = list->verticalScrollBar()->grab().toImage();
        QCOMPARE(handle.pixelColor(10, 5).name(), QString("#707070"));
    }
    QCOMPARE(list->font(), combo->font());
    combo->hidePopup();
}

void TestCombos::longNameLosesItsMiddle()
{
    Workspace space;
    const QString name = "Novation Launchpad Mini MK3 mapping of the Saturday night";
    QVERIFY(boxWith(space, name + " (factory)") != boxWith(space, name + " (my own)"));
    QVERIFY(boxWith(space, "My " + name) != boxWith(space, "An " + name));
    QCOMPARE(boxWith(space, name + " one " + name), boxWith(space, name + " two " + name));
}

void TestCombos::toolTipHasTheWholeName_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isLong");
    QTest::newRow("short") << "Simple OS2L mapping" << false;
    QTest::newRow("long") << "Novation Launchpad Mini MK3 mapping of the Saturday night (factory)" << true;
    QTest::newRow("with tags") << "<b>Novation</b> <img src=\"x.png\"> Launchpad Mini MK3 &amp; mapping"
                               << true;
}

void TestCombos::toolTipHasTheWholeName()
{
    QFETCH(const QString, text);
    QFETCH(const bool, isLong);
    Workspace space;
    auto *combo = comboWith(space, "mididevices", {text});
    QVERIFY(combo);
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());

    const QPoint middle = combo->rect().center();
    QHelpEvent help(QEvent::ToolTip, middle, combo->mapToGlobal(middle));
    QCoreApplication::sendEvent(combo, &help);
    QCOMPARE(QToolTip::isVisible(), isLong);
    if (isLong) {
        QTextDocument shown;
        shown.setHtml(QToolTip::text());
        QCOMPARE(shown.toPlainText().replace(QChar::Nbsp, ' '), text);
    }
}

QTEST_MAIN(TestCombos)
#include "test_combos.moc"
