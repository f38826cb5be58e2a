// Linked into a program, ends it as soon as its first window has been painted and handed to the screen.

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

namespace {

class FirstPaint final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()
            && static_cast<QWidget *>(watched)->isWindow()) {
            // The children are painted within this event, so the loop comes back with a whole window. The
            // way down is no part of the start and is not taken.
            QTimer::singleShot(0, [] { std::_Exit(EXIT_SUCCESS); });
        }
        return QObject::eventFilter(watched, event);
    }
};

void watchForFirstPaint()
{
    auto *const application = QCoreApplication::instance();
    application->installEventFilter(new FirstPaint(application));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchForFirstPaint)
