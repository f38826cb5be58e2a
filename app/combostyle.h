#pragma once

#include <QProxyStyle>
#include <QSet>

class QComboBox;

/**
 * How combo boxes differ from the desktop's style: their list opens below them with a scroll bar and rows of the height
 * that they ask for, whatever the style makes of it elsewhere. A text that is too long leaves out its middle, so that
 * its end is seen, and a tool tip has all of it.
 */
class ComboStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    /** Gives a combo box this style, which is to outlive it. Its tool tip is then this one alone. */
    void applyTo(QComboBox &combo);

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawItemText(QPainter *painter, const QRect &place, int flags, const QPalette &palette,
                      bool isEnabled, const QString &text, QPalette::ColorRole role) const override;
    using QProxyStyle::polish;
    void polish(QWidget *widget) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QSet<QObject *> m_seen; ///< boxes whose lists are polished; only compared
};
