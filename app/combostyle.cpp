#include "app/combostyle.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTextDocument>
#include <QToolTip>

namespace {

/** The middle is left out where a text is wider than its place. */
QString fitted(const QString &text, const QFontMetrics &metrics, int width)
{
    return metrics.elidedText(text, Qt::ElideMiddle, width);
}

void polishAnew(QWidget &widget)
{
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
    QEvent change(QEvent::StyleChange);
    QCoreApplication::sendEvent(&widget, &change);
}

/**
 * Gives the list of a combo box the look that the style sheet of the box asks for. The list exists before the box has its
 * sheet, and would keep to what held for it without one.
 */
void polishList(QComboBox &combo)
{
    polishAnew(*combo.view());
    polishAnew(*combo.view()->verticalScrollBar());
    combo.view()->setFont(combo.font()); // which is lost thereby
}

/** Where a combo box without an icon has its text. */
QRect textPlace(const QComboBox &combo)
{
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    return combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
}

/** Shows a tool tip where not all of the text is seen; whether it does. */
bool showWholeText(QComboBox &combo, const QHelpEvent &event)
{
    const QString text = combo.currentText();
    if (fitted(text, combo.fontMetrics(), textPlace(combo).width()) == text)
        return false;
    // As rich text it is taken letter for letter; a name that has tags would else be rendered.
    QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(text), &combo);
    return true;
}

} // namespace

void ComboStyle::applyTo(QComboBox &combo)
{
    combo.setStyle(this);
    combo.installEventFilter(this);
}

int ComboStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                          QStyleHintReturn *returned) const
{
    return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

void ComboStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const
{
    const bool isRow =
        qobject_cast<const QAbstractItemView *>(widget); // it shows by its colour that it is current
    if (element != PE_FrameFocusRect || !isRow)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ComboStyle::drawItemText(QPainter *painter, const QRect &place, int flags, const QPalette &palette,
                              bool isEnabled, const QString &text, QPalette::ColorRole role) const
{
    QProxyStyle::drawItemText(painter, place, flags, palette, isEnabled,
                              fitted(text, painter->fontMetrics(), place.width()), role);
}

void ComboStyle::polish(QWidget *widget)
{
    if (auto *list = qobject_cast<QAbstractItemView *>(widget)) // one that another style has made has arrows
        list->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    QProxyStyle::polish(widget);
}

bool ComboStyle::eventFilter(QObject *watched, QEvent *event)
{
    auto *combo = qobject_cast<QComboBox *>(watched); // none while the box is taken down
    if (combo && event->type() == QEvent::Show
        && !m_seen.contains(combo)) { // earlier, it would cost at start-up
        m_seen.insert(combo);
        polishList(*combo);
    }
    if (combo && event->type() == QEvent::ToolTip && showWholeText(*combo, *static_cast<QHelpEvent *>(event)))
        return true;
    return QProxyStyle::eventFilter(watched, event);
}
