#include "app/dialog.h"
#include "app/messagebox.h"
#include "support/devices.h"
#include "support/workspace.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <algorithm>

namespace {

/** What a screen reader says of a widget: the labels beside it, its name, what its tool tip tells. */
QString spoken(QWidget *widget)
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
    if (!accessible)
        return {};
    QStringList parts;
    for (const auto &[label, relation] : accessible->relations(QAccessible::Label))
        parts += label->text(QAccessible::Name);
    parts += accessible->text(QAccessible::Name);
    parts += accessible->text(QAccessible::Description);
    parts.removeAll(QString());
    return parts.join(", ");
}

/** Object names; what is spoken of a widget where the library has made it and left it without one. */
QStringList namesOf(const QWidgetList &widgets)
{
    QStringList names;
    for (QWidget *widget : widgets)
        names += widget->objectName().isEmpty() ? spoken(widget) : widget->objectName();
    return names;
}

/** What is in sight and can get the focus in one of some ways; not what lies beneath another widget. */
QWidgetList controlsOf(const QWidget &window, Qt::FocusPolicy ways)
{
    QWidgetList controls;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const QWidget *top = window.childAt(widget->mapTo(&window, widget->rect().center()));
        const bool isOnTop = top && (top == widget || widget->isAncestorOf(top));
        if ((widget->focusPolicy() & ways) && !widget->focusProxy() && widget->isVisible() && isOnTop)
            controls += widget;
    }
    return controls;
}

/** What the Tab key has to reach; of a group of radio buttons it is the one that is checked. */
QWidgetList tabStopsOf(const QWidget &window)
{
    QWidgetList stops = controlsOf(window, Qt::TabFocus);
    const auto isUnchecked = [](QWidget *widget) {
        const auto *radio = qobject_cast<QRadioButton *>(widget);
        return radio && !radio->isChecked();
    };
    stops.erase(std::remove_if(stops.begin(), stops.end(), isUnchecked), stops.end());
    return stops;
}

/** Whether one rectangle ends where another begins, but for a few pixels, less than half of the lower of the two. */
bool isAbove(const QRect &upper, const QRect &lower)
{
    const int overlap = upper.y() + upper.height() - lower.y();
    return upper.y() < lower.y() && 2 * overlap < qMin(upper.height(), lower.height());
}

/** In rows from the top, each from the left; of two that begin together the smaller one, on top of the other, first. */
bool isReadBefore(const QRect &first, const QRect &second)
{
    if (isAbove(first, second))
        return true;
    if (isAbove(second, first))
        return false;
    return first.x() != second.x() ? first.x() < second.x() : first.height() < second.height();
}

/** The part of a parent that a widget belongs to: its ancestor that is a child of the parent, or itself. */
QWidget *partOf(QWidget *parent, QWidget *widget)
{
    while (widget->parentWidget() != parent)
        widget = widget->parentWidget();
    return widget;
}

/** Widgets within a parent in the order in which a person reads them; what stands in one panel stays together. */
QWidgetList inReadingOrder(QWidget *parent, const QWidgetList &widgets)
{
    QMap<QWidget *, QWidgetList> parts;
    for (QWidget *widget : widgets)
        parts[partOf(parent, widget)] += widget;
    QWidgetList order = parts.keys();
    std::sort(order.begin(), order.end(), [](const QWidget *first, const QWidget *second) {
        return isReadBefore(first->geometry(), second->geometry());
    });

    QWidgetList read;
    for (QWidget *part : qAsConst(order))
        read += parts.value(part) == QWidgetList{part} ? QWidgetList{part}
                                                       : inReadingOrder(part, parts.value(part));
    return read;
}

/** Where repeated presses of a key lead from a widget, until it or a widget for the second time has the focus. */
QStringList walk(QWidget *from, Qt::Key key)
{
    QWidgetList visited;
    from->setFocus(Qt::TabFocusReason);
    for (QWidget *at = QApplication::focusWidget(); at && !visited.contains(at);
         at = QApplication::focusWidget()) {
        visited += at;
        QTest::keyClick(at, key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    }
    return QApplication::focusWidget() == from ? namesOf(visited)
                                               : namesOf(visited) + QStringList{"never back"};
}

/** A round in the other direction that begins at the same place. */
QStringList backwards(QStringList names)
{
    std::reverse(names.begin() + 1, names.end());
    return names;
}

/** What is wrong with the names of some controls; empty if each has one of its own. */
QString badNames(const QWidgetList &controls)
{
    QMap<QString, QString> seen;
    for (QWidget *control : controls) {
        const QString name = spoken(control);
        if (name.trimmed().isEmpty())
            return control->objectName() + " has no name";
        if (seen.contains(name))
            return control->objectName() + " and " + seen.value(name) + " are both called " + name;
        seen.insert(name, control->objectName());
    }
    return controls.isEmpty() ? "no controls" : QString();
}

} // namespace

/** What a person without a mouse or without sight meets: names of the controls, and the way of the Tab key. */
class TestAccessible final : public QObject
{
    Q_OBJECT

private slots:
    void controlsHaveNames_data() { modes(); }
    void controlsHaveNames();
    void fieldsAndTablesHaveNamesOfTheirOwn();
    void labelBelongsToField_data();
    void labelBelongsToField();
    void tabFollowsReadingOrder_data() { modes(); }
    void tabFollowsReadingOrder();
    void focusStartsOnLiveButtons();
    void tabSkipsPadsBeneathGrid();
    void arrowsMoveInTables_data();
    void arrowsMoveInTables();
    void aboutDialogHasNames();
    void tabWalksAboutDialog();
    void tabWalksMessageBox();

private:
    static void modes();
    static bool enter(Workspace &space);
};

/** Both output modes, as they start and with Live Buttons; a device with a palette and one without. */
void TestAccessible::modes()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("device");
    QTest::addColumn<bool>("isFilled");
    QTest::newRow("pads without a show") << "radio_outputpage" << Devices::Akai << false;
    QTest::newRow("pads with Live Buttons") << "radio_outputpage" << Devices::Akai << true;
    QTest::newRow("keys without a show") << "radio_outputmidi" << Devices::Akai << false;
    QTest::newRow("keys with Live Buttons") << "radio_outputmidi" << Devices::Akai << true;
    QTest::newRow("keys of a device without a palette") << "radio_outputmidi" << Devices::MiniMk3 << false;
}

bool TestAccessible::enter(Workspace &space)
{
    QFETCH(const QString, mode);
    QFETCH(const int, device);
    QFETCH(const bool, isFilled);
    const bool isMidi = mode == "radio_outputmidi";
    if (!space.click(qPrintable(mode)) || (isMidi && !space.choose("devicescombo", device)))
        return false;
    return !isFilled || (space.loadSomeShow() && (isMidi ? space.putOnKey(0, 2, 2) : space.putOnPad(0, 0)));
}

void TestAccessible::controlsHaveNames()
{
    Workspace space;
    QVERIFY(enter(space));
    QCOMPARE(badNames(controlsOf(space.window(), Qt::StrongFocus)), QString());
}

/** On some systems the name of a combo box is what it shows; then only its label tells it from others. */
void TestAccessible::fieldsAndTablesHaveNamesOfTheirOwn()
{
    Workspace space;
    QStringList names;
    for (const QWidget *widget : space.window().findChildren<QWidget *>()) {
        const bool isNameless = qobject_cast<const QComboBox *>(widget)
                                || qobject_cast<const QLineEdit *>(widget)
                                || qobject_cast<const QTableView *>(widget);
        if (!isNameless)
            continue;
        QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
        names += widget->accessibleName();
    }
    QCOMPARE(names.size(), 11);
    QCOMPARE(names.removeDuplicates(), 0);
}

void TestAccessible::labelBelongsToField_data()
{
    QTest::addColumn<QString>("label");
    QTest::newRow("combobox") << "Live Pages";
    QTest::newRow("bankcombo") << "Bank";
    QTest::newRow("bankname") << "Name";
    QTest::newRow("devicescombo") << "Device";
    QTest::newRow("mididevices") << "Mapping";
    QTest::newRow("combo_offcolor") << "Off";
    QTest::newRow("combo_oncolor") << "On";
    QTest::newRow("padsname") << "Pad Page";
}

void TestAccessible::labelBelongsToField()
{
    QFETCH(const QString, label);
    Workspace space;
    auto *field = space.find<QWidget>(QTest::currentDataTag());
    QStringList labels;
    for (const auto &[text, relation] :
         QAccessible::queryAccessibleInterface(field)->relations(QAccessible::Label))
        labels += text->text(QAccessible::Name);
    labels.removeOne("DMX Software"); // the panel's title
    QCOMPARE(labels, QStringList{label});
}

void TestAccessible::tabFollowsReadingOrder()
{
    Workspace space;
    QVERIFY(enter(space));
    const QWidgetList expected = inReadingOrder(&space.window(), tabStopsOf(space.window()));
    QVERIFY(expected.size() > 9);
    QCOMPARE(walk(expected.first(), Qt::Key_Tab), namesOf(expected));
    QCOMPARE(walk(expected.first(), Qt::Key_Backtab), backwards(namesOf(expected)));
}

void TestAccessible::focusStartsOnLiveButtons()
{
    Workspace space;
    QCOMPARE(space.window().focusWidget(), space.dmxView());
    QCOMPARE(Workspace::focused(), QString("dmxlistview"));
}

/** The pads stay where they are in the other mode, with the grid over them. */
void TestAccessible::tabSkipsPadsBeneathGrid()
{
    Workspace space;
    const auto stops = [&space] { return walk(space.find<QWidget>("loadini"), Qt::Key_Tab); };
    QVERIFY(stops().contains("vdjlistview"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.padsView()->isVisible());
    QVERIFY(!stops().contains("vdjlistview"));
    QVERIFY(space.click("radio_outputpage"));
    QVERIFY(stops().contains("vdjlistview"));
}

void TestAccessible::arrowsMoveInTables_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("column");
    QTest::newRow("dmxlistview") << "radio_outputpage" << 0;
    QTest::newRow("vdjlistview") << "radio_outputpage" << 0;
    QTest::newRow("tablecontroller") << "radio_outputmidi" << 2;
}

void TestAccessible::arrowsMoveInTables()
{
    QFETCH(const QString, mode);
    QFETCH(const int, column);
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.click(qPrintable(mode)));
    auto *table = space.find<QTableView>(QTest::currentDataTag());
    table->setFocus(Qt::TabFocusReason);
    table->setCurrentIndex(table->model()->index(2, column));
    QTest::keyClick(table, Qt::Key_Down);
    QCOMPARE(table->currentIndex(), table->model()->index(3, column));
}

void TestAccessible::aboutDialogHasNames()
{
    Dialog dialog(nullptr);
    dialog.show();
    QCOMPARE(badNames(controlsOf(dialog, Qt::StrongFocus)), QString());
    for (QLabel *label : dialog.findChildren<QLabel *>()) {
        const QString name = spoken(label);
        QVERIFY2(!name.isEmpty() && !name.contains(QChar::ObjectReplacementCharacter) && !name.contains('<'),
                 qPrintable(label->objectName() + " reads " + name));
    }
}

void TestAccessible::tabWalksAboutDialog()
{
    Dialog dialog(nullptr);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    const QWidgetList expected = inReadingOrder(&dialog, tabStopsOf(dialog));
    QCOMPARE(expected.size(), 5);
    QCOMPARE(walk(expected.first(), Qt::Key_Tab), namesOf(expected));
    QCOMPARE(walk(expected.first(), Qt::Key_Backtab), backwards(namesOf(expected)));
}

void TestAccessible::tabWalksMessageBox()
{
    QString faults = "no box";
    QTimer::singleShot(0, qApp, [&faults] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        QApplication::setActiveWindow(box);
        const QWidgetList expected = inReadingOrder(box, tabStopsOf(*box));
        faults = badNames(QWidgetList{box} + expected);
        if (expected.size() != 3 || walk(expected.first(), Qt::Key_Tab) != namesOf(expected))
            faults += "Tab goes elsewhere";
        box->reject();
    });
    MessageBox::ask({}, "Question", {}, QMessageBox::Save | QMessageBox::Yes | QMessageBox::Cancel,
                    QMessageBox::Cancel);
    QCOMPARE(faults, QString());
}

QTEST_MAIN(TestAccessible)
#include "test_accessible.moc"
