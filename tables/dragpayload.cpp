#include "tables/dragpayload.h"

#include "tables/cellfields.h"

#include <QColor>
#include <QDataStream>
#include <QMimeData>

namespace {

QStringList readTexts(const QByteArray &bytes)
{
    QStringList texts;
    QDataStream stream(bytes);
    // A drop needs no more than the first record.
    while (!stream.atEnd() && texts.size() < CellFields::longestRecord()) {
        QString text;
        stream >> text;
        if (stream.status() != QDataStream::Ok)
            break;
        texts.append(text);
    }
    return texts;
}

QString readColor(const QByteArray &bytes)
{
    QColor color;
    QDataStream stream(bytes);
    stream >> color;
    return stream.status() == QDataStream::Ok ? color.name() : QString();
}

} // namespace

QStringList DragPayload::mimeTypes()
{
    return {TextListType, ColorType};
}

bool DragPayload::isOfThisProgram(const QMimeData *data)
{
    return data && data->metaObject() == &QMimeData::staticMetaObject;
}

std::optional<DragPayload> DragPayload::fromMime(const QMimeData *data)
{
    if (!isOfThisProgram(data) || !data->hasFormat(TextListType) || !data->hasFormat(ColorType))
        return std::nullopt;

    DragPayload payload;
    payload.m_texts = readTexts(data->data(TextListType));
    if (payload.m_texts.isEmpty())
        return std::nullopt;
    payload.m_color = readColor(data->data(ColorType));
    return payload;
}

QMimeData *createDragData(const QModelIndexList &indexes, const QVector<DragField> &fields)
{
    QByteArray texts;
    QByteArray colors;
    QDataStream textStream(&texts, QIODevice::WriteOnly);
    QDataStream colorStream(&colors, QIODevice::WriteOnly);

    for (const QModelIndex &index : indexes) {
        if (!index.isValid())
            continue;
        textStream << QString::number(index.row()) << QString::number(index.column());
        for (const DragField &field : fields)
            textStream << (field.itemRole < 0 ? field.text : index.data(field.itemRole).toString());

        QColor color;
        color.setNamedColor(index.data(Qt::DecorationRole).toString());
        colorStream << color;
    }

    auto *data = new QMimeData;
    data->setData(DragPayload::TextListType, texts);
    data->setData(DragPayload::ColorType, colors);
    return data;
}
