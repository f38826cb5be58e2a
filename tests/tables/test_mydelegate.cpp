#include "tables/controller.h"
#include "tables/mydelegate.h"
#include "tables/roles.h"

#include <QImage>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <QTableView>
#include <QTextDocument>
#include <QToolTip>
#include <QtTest>

namespace {

/** The cell's place in the picture; the picture is larger, so that painting beside the cell shows. */
const QRect cellRect(13, 7, 90, 40);

/** A grid of keys, each called "Fog" and with a red Live Button. */
class Grid final
{
public:
    Grid()
    {
        model.insertRows(0, 12);
        for (int row = 0; row < 12; ++row) {
            for (int column = 0; column < 12; ++column) {
                model.setData(model.index(row, column), "Fog");
                model.setData(model.index(row, column), "#ff0000", Qt::DecorationRole);
            }
        }
    }

    QModelIndex set(const QString &text, int role, int row = 2, int column = 2)
    {
        const QModelIndex index = model.index(row, column);
        model.setData(index, text, role);
        return index;
    }

    Controller model;
};

/** A picture with a pattern that no cell has, and a font whose edges are not smoothed. */
class Canvas final
{
public:
    Canvas() : image(120, 80, QImage::Format_RGB32)
    {
        image.fill(QColor("#00ffff"));
        painter.begin(&image);
        QFont font = painter.font();
        font.setPixelSize(20);
        font.setBold(true);
        font.setStyleStrategy(QFont::NoAntialias);
        painter.setFont(font);
    }

    QImage image;
    QPainter painter;
};

QImage painted(const QModelIndex &index, QStyle::State state = QStyle::State_Enabled,
               const QRect &rect = cellRect)
{
    Canvas canvas;
    QStyleOptionViewItem option;
    option.rect = rect;
    option.state = state;
    Mydelegate().paint(&canvas.painter, option, index);
    canvas.painter.end();
    return canvas.image;
}

/** A cell of the given looks; an invalid swatch colour means a cell without swatch. */
QImage expected(const QColor &background, const QRect &swatch, const QColor &swatchColor,
                const QColor &textColor, const QRect &text, const QString &name = "Fog",
                const QRect &rect = cellRect)
{
    Canvas canvas;
    canvas.painter.fillRect(rect, background);
    if (swatchColor.isValid())
        canvas.painter.fillRect(swatch, swatchColor);
    canvas.painter.setPen(QPen(textColor, 2));
    canvas.painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, name);
    canvas.painter.end();
    return canvas.image;
}

// For cellRect: from 5 right of the edge, 15 by 15; from 25 right of the edge to 5 left of the other edge.
const QRect swatchRect(18, 19, 15, 15);
const QRect textRect(38, 7, 60, 40);

QImage expectedKey(const QColor &background, const QColor &swatchColor = Qt::red, const QString &name = "Fog")
{
    return expected(background, swatchRect, swatchColor, Qt::white, textRect, name);
}

QImage expectedPlain(const QString &name = "Fog")
{
    return expected("#303030", {}, {}, "#909090", textRect, name);
}

int count(const QImage &image, const QRect &rect, const QColor &color)
{
    int pixels = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            pixels += image.pixelColor(x, y) == color;
    }
    return pixels;
}

/** A view of a grid, over which the mouse can rest. */
class GridView final
{
public:
    explicit GridView(Grid &grid)
    {
        m_view.setModel(&grid.model);
        m_view.setItemDelegate(&m_delegate);
        m_view.show();
    }

    /** Whether there is something to tell. */
    bool askForToolTip(const QModelIndex &cell)
    {
        const QPoint point = m_view.visualRect(cell).center();
        QHelpEvent event(QEvent::ToolTip, point, m_view.viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(m_view.viewport(), &event);
        return event.isAccepted();
    }

private:
    Mydelegate m_delegate;
    QTableView m_view;
};

/** Rich text that loads nothing, and notes by which schemes it would. */
class Document final : public QTextDocument
{
public:
    QStringList loaded;

protected:
    QVariant loadResource(int /*type*/, const QUrl &name) override
    {
        loaded += name.scheme();
        return QPixmap(10, 10);
    }
};

} // namespace

/** How the cells of the device grid look, to the pixel. */
class TestMydelegate final : public QObject
{
    Q_OBJECT

private slots:
    void metaObjectOfTheClass();
    void pixels_data();
    void pixels();
    void plainOrKey_data();
    void plainOrKey();
    void stateOfKey_data();
    void stateOfKey();
    void places_data();
    void places();
    void swatchColor_data();
    void swatchColor();
    void textOfCell();
    void painterIsRestored();
    void toolTipTakesNoOrders_data();
    void toolTipTakesNoOrders();
    void emptyKeyHasNoToolTip();
};

void TestMydelegate::metaObjectOfTheClass()
{
    QObject parent;
    const auto *delegate = new Mydelegate(&parent);
    QCOMPARE(delegate->parent(), &parent);
    QCOMPARE(delegate->metaObject()->className(), "Mydelegate");
    QCOMPARE(delegate->metaObject()->superClass()->className(), "QStyledItemDelegate");
}

void TestMydelegate::pixels_data()
{
    QTest::addColumn<QString>("available");
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QColor>("textColor");
    QTest::addColumn<int>("swatch"); // pixels of it
    QTest::newRow("plain cell") << "0" << QColor("#303030") << QColor("#909090") << 0;
    QTest::newRow("key at rest") << "1" << QColor(Qt::black) << QColor(Qt::white) << 15 * 15;
}

/** Nothing else is in the cell, and nothing beside it; all other tests compare with pictures. */
void TestMydelegate::pixels()
{
    QFETCH(QString, available);
    QFETCH(QColor, background);
    QFETCH(QColor, textColor);
    QFETCH(int, swatch);
    Grid grid;
    const QImage image = painted(grid.set(available, AvailableRole));
    const int text = count(image, textRect, textColor);
    QVERIFY(text > 0);
    QCOMPARE(count(image, swatchRect, Qt::red), swatch);
    QCOMPARE(count(image, cellRect, background), 90 * 40 - swatch - text);
    QCOMPARE(count(image, image.rect(), "#00ffff"), 120 * 80 - 90 * 40);
}

void TestMydelegate::plainOrKey_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("available");
    QTest::addColumn<bool>("isPlain");
    QTest::newRow("pad of the device") << 2 << 2 << "1" << false;
    QTest::newRow("pad that the device lacks") << 2 << 2 << "0" << true;
    QTest::newRow("upper left corner is a key") << 0 << 0 << "1" << false;
    QTest::newRow("upper left corner that the device lacks") << 0 << 0 << "0" << true;
    QTest::newRow("upper right corner") << 0 << 11 << "1" << true;
    QTest::newRow("lower left corner") << 11 << 0 << "1" << true;
    QTest::newRow("lower right corner") << 11 << 11 << "1" << true;
    QTest::newRow("upper right corner that the device lacks") << 0 << 11 << "0" << true;
    QTest::newRow("top band beside its right end") << 0 << 10 << "1" << false;
    QTest::newRow("top band beside its left end") << 0 << 1 << "1" << false;
    QTest::newRow("right band below its upper end") << 1 << 11 << "1" << false;
    QTest::newRow("right band above its lower end") << 10 << 11 << "1" << false;
    QTest::newRow("left band above its lower end") << 10 << 0 << "1" << false;
    QTest::newRow("bottom band beside its left end") << 11 << 1 << "1" << false;
    QTest::newRow("bottom band beside its right end") << 11 << 10 << "1" << false;
    QTest::newRow("available is empty") << 2 << 2 << "" << false;
    QTest::newRow("available is 00") << 2 << 2 << "00" << false;
}

void TestMydelegate::plainOrKey()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, available);
    QFETCH(bool, isPlain);
    Grid grid;
    const QImage image = painted(grid.set(available, AvailableRole, row, column));
    QCOMPARE(image, isPlain ? expectedPlain() : expectedKey(Qt::black));
}

void TestMydelegate::stateOfKey_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QColor>("background");
    QTest::newRow("nothing") << int(QStyle::State_None) << QColor(Qt::black);
    QTest::newRow("at rest") << int(QStyle::State_Enabled | QStyle::State_Active) << QColor(Qt::black);
    QTest::newRow("under the mouse") << int(QStyle::State_Enabled | QStyle::State_MouseOver)
                                     << QColor("#202020");
    QTest::newRow("selected") << int(QStyle::State_Enabled | QStyle::State_Selected) << QColor("#404040");
    QTest::newRow("selected under the mouse")
        << int(QStyle::State_Enabled | QStyle::State_Selected | QStyle::State_MouseOver) << QColor("#404040");
    QTest::newRow("selected in another window") << int(QStyle::State_Selected) << QColor("#404040");
    QTest::newRow("with the focus") << int(QStyle::State_Enabled | QStyle::State_HasFocus)
                                    << QColor(Qt::black);
    QTest::newRow("selected with the focus")
        << int(QStyle::State_Enabled | QStyle::State_HasFocus | QStyle::State_Selected) << QColor("#404040");
    QTest::newRow("pressed") << int(QStyle::State_Enabled | QStyle::State_Sunken) << QColor(Qt::black);
}

void TestMydelegate::stateOfKey()
{
    QFETCH(int, state);
    QFETCH(QColor, background);
    Grid grid;
    QCOMPARE(painted(grid.model.index(2, 2), QStyle::State(state)), expectedKey(background));
    QCOMPARE(painted(grid.set("0", AvailableRole), QStyle::State(state)), expectedPlain());
}

void TestMydelegate::places_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("swatch"); // 5 right of the edge, 15 by 15
    QTest::addColumn<QRect>("text");   // from 25 right of the edge to 5 left of the other edge
    const auto row = [](const char *name, const QRect &rect, int swatchTop, int textWidth) {
        const QRect swatch(rect.left() + 5, swatchTop, 15, 15);
        const QRect text(rect.left() + 25, rect.top(), textWidth, rect.height());
        QTest::newRow(name) << rect << swatch << text;
    };
    row("even height", {13, 7, 90, 40}, 19, 60);
    row("odd height", {13, 7, 90, 41}, 20, 60);
    row("two more", {13, 7, 90, 42}, 20, 60);
    row("at the origin", {0, 0, 100, 60}, 22, 70);
    row("just high enough", {13, 30, 90, 15}, 30, 60);
    row("one more than high enough", {13, 30, 90, 16}, 30, 60);
    row("too low by one", {13, 30, 90, 14}, 30, 60);
    row("too low by an even number", {13, 30, 90, 11}, 28, 60);
    row("too low by an odd number, cut toward zero", {13, 30, 90, 10}, 28, 60);
    row("narrower than the text", {13, 7, 40, 40}, 19, 10);
    row("a gap too narrow for any text", {13, 7, 10, 40}, 19, -20);
}

void TestMydelegate::places()
{
    QFETCH(QRect, rect);
    QFETCH(QRect, swatch);
    QFETCH(QRect, text);
    Grid grid;
    const QImage image = painted(grid.set("", Qt::EditRole), QStyle::State_Enabled, rect);
    QCOMPARE(count(image, image.rect(), Qt::red), 15 * 15);
    QCOMPARE(count(image, swatch, Qt::red), 15 * 15);
    for (const char *name : {"Fog", "A text that is far too long", "two\nlines", ""}) {
        const QModelIndex key = grid.set(name, Qt::EditRole);
        QCOMPARE(painted(key, QStyle::State_Enabled, rect),
                 expected(Qt::black, swatch, Qt::red, Qt::white, text, name, rect));
        const QModelIndex plain = grid.set("0", AvailableRole);
        QCOMPARE(painted(plain, QStyle::State_Enabled, rect),
                 expected("#303030", {}, {}, "#909090", text, name, rect));
        grid.set("1", AvailableRole);
    }
}

void TestMydelegate::swatchColor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("digits") << "#102030" << QColor(0x10, 0x20, 0x30);
    QTest::newRow("upper case") << "#ABCDEF" << QColor(0xab, 0xcd, 0xef);
    QTest::newRow("colour word") << "lime" << QColor(0, 255, 0);
    QTest::newRow("as the background") << "#404040" << QColor(0x40, 0x40, 0x40);
    QTest::newRow("no colour paints black") << "mud" << QColor(Qt::black);
    QTest::newRow("empty paints black") << "" << QColor(Qt::black);
    QTest::newRow("a key at rest") << "#000000" << QColor(Qt::black);
}

void TestMydelegate::swatchColor()
{
    QFETCH(QString, text);
    QFETCH(QColor, color);
    Grid grid;
    QCOMPARE(painted(grid.set(text, Qt::DecorationRole), QStyle::State_Selected),
             expectedKey("#404040", color));
}

/** The text is the name, neither the Live Button's own nor in the text colour that the key keeps; markup stays. */
void TestMydelegate::textOfCell()
{
    Grid grid;
    grid.set("other", DisplayNameRole);
    grid.set("#123456", Qt::ForegroundRole);
    for (const char *text : {"\xc5\xbb\xc3\xb3\xc5\x82w", "A & B", "<b>A"}) {
        const QModelIndex index = grid.set(QString::fromUtf8(text), Qt::EditRole);
        QCOMPARE(painted(index), expectedKey(Qt::black, Qt::red, QString::fromUtf8(text)));
        grid.set("0", AvailableRole);
        QCOMPARE(painted(index), expectedPlain(QString::fromUtf8(text)));
        grid.set("1", AvailableRole);
    }
}

void TestMydelegate::painterIsRestored()
{
    for (const char *available : {"1", "0"}) {
        Grid grid;
        const QModelIndex index = grid.set(available, AvailableRole);
        Canvas canvas;
        QPainter &painter = canvas.painter;
        painter.setPen(QPen(Qt::magenta, 5, Qt::DotLine));
        painter.setBrush(QBrush(Qt::yellow, Qt::CrossPattern));
        painter.setBackground(Qt::cyan);
        painter.setClipRect(1, 2, 100, 60);
        painter.translate(3, 4);
        painter.setOpacity(0.5);
        const QFont font = painter.font();
        const QRegion clip = painter.clipRegion();

        QStyleOptionViewItem option;
        option.rect = cellRect;
        Mydelegate().paint(&painter, option, index);

        QCOMPARE(painter.pen(), QPen(Qt::magenta, 5, Qt::DotLine));
        QCOMPARE(painter.brush(), QBrush(Qt::yellow, Qt::CrossPattern));
        QCOMPARE(painter.background(), QBrush(Qt::cyan));
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.transform(), QTransform::fromTranslate(3, 4));
        QCOMPARE(painter.clipRegion(), clip);
        QCOMPARE(painter.opacity(), 0.5);
    }
}

void TestMydelegate::toolTipTakesNoOrders_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "Fog";
    QTest::newRow("picture") << "<img src='picture.png'>";
    QTest::newRow("picture of another computer") << "<img src=\"//server/share/picture.png\">";
    QTest::newRow("style sheet") << "<link rel='stylesheet' href='sheet.css'>";
    QTest::newRow("sheet of its own") << "<style>@import url(sheet.css);</style>";
    QTest::newRow("ends the text") << "</body></html><img src='picture.png'>";
    QTest::newRow("entity") << "R&amp;B &lt;img&gt;";
    QTest::newRow("places for arguments") << "%0 %1";
    QTest::newRow("the end of the tool tip") << "<br><br>Right-click to Remove";
}

void TestMydelegate::toolTipTakesNoOrders()
{
    QFETCH(const QString, name);
    Grid grid;
    grid.set("3", ButtonRole);
    grid.set("red", OffColorRole);
    grid.set("blue", OnColorRole);
    GridView view(grid);
    QVERIFY(view.askForToolTip(grid.set(name, Qt::EditRole)));

    Document document;
    document.setHtml(QToolTip::text());
    QCOMPARE(document.toPlainText(),
             "PAD 1\nLive Button: " + name
                 + "\nOff Color : \uFFFC\nOn Color : \uFFFC\n\nRight-click to Remove");
    document.size(); // lays it out, pictures included
    document.loaded.removeDuplicates();
    QCOMPARE(document.loaded, QStringList{"data"});
}

void TestMydelegate::emptyKeyHasNoToolTip()
{
    Grid grid;
    grid.set("3", ButtonRole);
    GridView view(grid);
    QVERIFY(view.askForToolTip(grid.model.index(2, 2)));
    QVERIFY(QToolTip::isVisible());
    QVERIFY(!view.askForToolTip(grid.model.index(2, 3)));
    QTRY_VERIFY(!QToolTip::isVisible());
}

QTEST_MAIN(TestMydelegate)
#include "test_mydelegate.moc"
