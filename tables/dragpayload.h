#pragma once

#include <QModelIndexList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

class QMimeData;

/**
 * One dragged cell, as the three tables hand it to each other.
 *
 * A drag carries two parts, each a QDataStream of the library's default version: the texts of
 * "application/vnd.text.list", and the colour of "application/x-color". Records follow each other
 * without header or count, one for each dragged cell; a drop looks at the first.
 */
class DragPayload final
{
public:
    static constexpr char TextListType[] = "application/vnd.text.list";
    static constexpr char ColorType[] = "application/x-color";

    /** Where a value stands: the position among the texts of a record, of which a table writes as many as it has. */
    enum Position {
        NotDragged = -2,
        Color, ///< in the part of its own
        Row,
        Column,
        Text,
        Page,
        DisplayName,
        Origin,
        Button,
        Available,
        OffColor,
        OnColor,
        Blink
    };

    /** Both MIME types, the texts first. */
    static QStringList mimeTypes();

    /**
     * Whether dragged data was made in this program. What comes from another one has a class of the platform's own,
     * and its marks and rows are those of tables over there.
     *
     * @param data  may be null
     */
    static bool isOfThisProgram(const QMimeData *data);

    /**
     * Reads the first record of a drag.
     *
     * @param data  the dragged data; may be null
     * @return      nothing if a part is missing or holds no text, or if another program made it. A record that is cut
     *              off or damaged keeps the texts in front of the damage; a missing colour is the empty text.
     */
    static std::optional<DragPayload> fromMime(const QMimeData *data);

    /** Text at a Position; empty where the record has none. */
    QString text(int position) const { return position == Color ? color() : m_texts.value(position); }

    /** Colour of the cell as a hash and six lower-case hexadecimal digits, or empty. */
    QString color() const { return m_color; }

    /** Row of the dragged cell in the table where the drag began; 0 if the text is no number. */
    int sourceRow() const { return text(Row).toInt(); }

    /** Column of the dragged cell in the table where the drag began; 0 if the text is no number. */
    int sourceColumn() const { return text(Column).toInt(); }

    /** Whether the drag began in the Live Buttons table. */
    bool isLiveButton() const { return text(Origin) == QLatin1String("1"); }

    /** Whether the drag began in the table that it is dropped on. */
    bool isMove() const { return text(Origin) == QLatin1String("0"); }

private:
    QStringList m_texts;
    QString m_color;
};

/** What stands at one position of a drag's text record, behind row and column. */
struct DragField
{
    /** The text that the model gives for a role; null where the model has no such role. */
    static DragField role(int role) { return {role, {}}; }
    /** The same text for every cell. */
    static DragField literal(const QString &text) { return {-1, text}; }

    int itemRole = -1;
    QString text = {};
};

/**
 * Builds the data of a drag.
 *
 * @param indexes  the dragged cells, in the order of the selection; invalid ones are left out
 * @param fields   the texts of a record behind row and column
 * @return         both MIME parts, owned by the caller; empty parts for an empty list
 */
QMimeData *createDragData(const QModelIndexList &indexes, const QVector<DragField> &fields);
