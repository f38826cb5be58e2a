#include "export/padspage.h"

#include "script/script.h"
#include "tables/padbanks.h"
#include "tables/roles.h"

#include <QAbstractItemModel>
#include <QTextStream>
#include <QVector>

using namespace Script;

namespace {

constexpr int Columns = 2;

/** Scripts of one pad, a clause for each bank in use. */
struct PadClauses
{
    QStringList texts;
    QStringList colors;
    QStringList actions;
};

QString whenBank(int number, const QString &script)
{
    return ifElse(var("dmxbank") + " " + QString::number(number), script);
}

QString getText(const QString &text)
{
    return "get_text " + quoted(text);
}

QString cycleBanks(const QString &step)
{
    return "cycle " + quoted("dmxbank") + " " + step;
}

QString joined(const QStringList &clauses)
{
    return clauses.join(" : ");
}

int pageOf(const QModelIndex &pad)
{
    return pad.data(PageRole).toInt();
}

/** Numbers of the banks that hold a Live Button, rising. */
QVector<int> banksInUse(const QAbstractItemModel &pads)
{
    QVector<int> banks;
    for (int row = 0; row < pads.rowCount(); ++row) {
        const int bank = row / PadBanks::RowsPerBank;
        if (!banks.isEmpty() && banks.last() == bank)
            continue;
        for (int column = 0; column < Columns; ++column) {
            if (pageOf(pads.index(row, column)) > 0) {
                banks.append(bank);
                break;
            }
        }
    }
    return banks;
}

PadClauses clausesOf(const QAbstractItemModel &pads, const QVector<int> &banks, int rowInBank, int column)
{
    PadClauses clauses;
    for (int number = 0; number < banks.size(); ++number) {
        const QModelIndex pad = pads.index(banks.at(number) * PadBanks::RowsPerBank + rowInBank, column);
        const int page = pageOf(pad);
        if (page > 0) {
            clauses.texts += whenBank(number, getText(pad.data(Qt::EditRole).toString()));
            clauses.colors += whenBank(number, color(pad.data(Qt::DecorationRole).toString()));
            clauses.actions += whenBank(number, os2lButton(pad.data(DisplayNameRole).toString()));
        } else if (page == 0) {
            clauses.texts += whenBank(number, getText({}));
            clauses.colors += whenBank(number, color("transparent"));
            clauses.actions += whenBank(number, Nothing);
        }
    }
    return clauses;
}

void writePad(QTextStream &out, int number, const PadClauses &clauses)
{
    out << "\t<pad" << number << " name=\"`" << joined(clauses.texts) << "`\" color=\""
        << joined(clauses.colors) << "\">" << joined(clauses.actions) << "</pad" << number << ">" << Qt::endl;
}

void writeBankParameter(QTextStream &out, const QVector<int> &banks, const QStringList &names)
{
    QStringList clauses;
    for (int number = 0; number < banks.size(); ++number)
        clauses += whenBank(number, getText(names.value(banks.at(number))));
    const QString step = QString::number(banks.size());
    out << "\t<param1 name=\"`" << joined(clauses) << "`\">param_bigger 0 ? " << cycleBanks(step) << " : "
        << cycleBanks("-" + step) << "</param1>" << Qt::endl;
}

} // namespace

void writePadsPage(QTextStream &out, const PadsPage &page)
{
    const QVector<int> banks = banksInUse(page.pads);

    out << R"(<?xml version="1.0" encoding="UTF-8"?>)" << Qt::endl;
    out << "<page name=\"" << page.name << "\">" << Qt::endl;
    for (int pad = 0; pad < page.padsPerBank; ++pad)
        writePad(out, pad + 1,
                 clausesOf(page.pads, banks, pad % PadBanks::RowsPerBank, pad / PadBanks::RowsPerBank));
    writeBankParameter(out, banks, page.banks);
    out << "</page>" << Qt::endl;
}
