#include "tables/cellfields.h"

#include "tables/roles.h"

#include <QColor>

#include <algorithm>

namespace {

const CellField *find(const CellFields::List &fields, int role)
{
    const int wanted = role == Qt::DisplayRole ? int(Qt::EditRole) : role;
    const auto field = std::find_if(fields.cbegin(), fields.cend(),
                                    [wanted](const CellField &each) { return each.role == wanted; });
    return field == fields.cend() ? nullptr : &*field;
}

int lastPlace(const CellFields::List &fields)
{
    const auto field =
        std::max_element(fields.cbegin(), fields.cend(), [](const CellField &one, const CellField &other) {
            return one.place < other.place;
        });
    return field->place;
}

} // namespace

const CellFields::List &CellFields::ofLiveButtons()
{
    static const List fields = {
        {Qt::EditRole, "title", "1", {}, DragPayload::Text},
        {DisplayNameRole, "dspname", "1", {}, DragPayload::DisplayName},
        {PageRole, "pageid", "0", {}, DragPayload::Page},
        {SourceRole, "source", "1", {}, DragPayload::Origin},
        {ButtonRole, "buttonid", "0", {}, DragPayload::Button},
        {Qt::DecorationRole, "color", "#FFFFFF", {}, DragPayload::Color},
        {Qt::ForegroundRole, "textcolor", "#ffffff"},
        {Qt::CheckStateRole, "check", "0"},
    };
    return fields;
}

const CellFields::List &CellFields::ofPads()
{
    static const List fields = {
        {Qt::EditRole, "name", "1", {}, DragPayload::Text},
        {DisplayNameRole, "dspname", "1", {}, DragPayload::DisplayName},
        {PageRole, "pagenr", "0", "0", DragPayload::Page},
        {ButtonRole, "id", "-1", "-1", DragPayload::Button},
        {Qt::DecorationRole, "color", "#000000", "#000000", DragPayload::Color},
    };
    return fields;
}

const CellFields::List &CellFields::ofKeys()
{
    static const List fields = {
        {Qt::EditRole, "name", "", {}, DragPayload::Text},
        {DisplayNameRole, "dspname", "", {}, DragPayload::DisplayName},
        {PageRole, "pagenr", "0", "0", DragPayload::Page},
        {ButtonRole, "id", "-1", "-1", DragPayload::Button},
        {AvailableRole, "avail", "1", "1", DragPayload::Available},
        {OffColorRole, "coloroff", "", "", DragPayload::OffColor},
        {OnColorRole, "coloron", "", "", DragPayload::OnColor},
        {BlinkRole, "blink", "0", "", DragPayload::Blink},
        {Qt::DecorationRole, "color", "#000000", "#000000", DragPayload::Color},
        {Qt::ForegroundRole, "textcolor", "#ffffff"},
    };
    return fields;
}

CellFields::List CellFields::dragged(const List &fields)
{
    List dragged;
    std::copy_if(fields.cbegin(), fields.cend(), std::back_inserter(dragged),
                 [](const CellField &field) { return field.place != DragPayload::NotDragged; });
    return dragged;
}

QVariant CellFields::value(const List &fields, const Record &cell, int role)
{
    const CellField *field = find(fields, role);
    if (!field)
        return {};
    const QString text = cell.value(field->key);
    switch (role) {
    case Qt::DecorationRole:
    case Qt::ForegroundRole:
        return QColor(text);
    case Qt::CheckStateRole:
        return text == QLatin1String("1") ? Qt::Checked : Qt::Unchecked;
    default:
        return text;
    }
}

bool CellFields::store(const List &fields, Record &cell, const QVariant &value, int role)
{
    const CellField *field = find(fields, role);
    if (!field)
        return false;
    if (role == Qt::CheckStateRole)
        cell[field->key] = value == QVariant(0) ? QStringLiteral("0") : QStringLiteral("1");
    else
        cell[field->key] = value.toString();
    return true;
}

Record CellFields::newCell(const List &fields)
{
    Record cell;
    for (const CellField &field : fields)
        cell.insert(field.key, field.inNewRow);
    return cell;
}

int CellFields::longestRecord()
{
    static const int length = lastPlace(ofKeys()) + 1;
    return length;
}

QVector<DragField> CellFields::dragTexts(const List &fields, const QString &origin)
{
    QVector<DragField> texts(lastPlace(fields) + 1 - DragPayload::Text, DragField::literal({}));
    for (const CellField &field : fields) {
        if (field.place >= DragPayload::Text)
            texts[field.place - DragPayload::Text] = DragField::role(field.role);
    }
    texts[DragPayload::Origin - DragPayload::Text] = DragField::literal(origin);
    return texts;
}
