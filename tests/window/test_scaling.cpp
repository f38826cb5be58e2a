#include "app/scaling.h"

#include <QtTest>

using Scaling::Desktop;

/** How large the program shows itself, and where its window stays. What becomes of it is tried on real desktops. */
class TestScaling final : public QObject
{
    Q_OBJECT

private slots:
    void dpi_data();
    void dpi();
    void place_data();
    void place();
    void userOverridesVariables();
};

void TestScaling::dpi_data()
{
    QTest::addColumn<double>("asked");
    QTest::addColumn<QSize>("room");
    QTest::addColumn<int>("given"); // 0 where Qt comes to it by itself
    const QSize fullHd(1920, 1080);
    const QSize large(3840, 2160);

    QTest::newRow("nothing known") << 0.0 << QSize() << 0;
    QTest::newRow("100 %") << 96.0 << fullHd << 0;
    QTest::newRow("125 %") << 120.0 << fullHd << 0;
    QTest::newRow("150 %, large screen") << 144.0 << large << 0;
    QTest::newRow("200 %, room not known") << 192.0 << QSize() << 0;
    QTest::newRow("between quarters") << 110.0 << fullHd << 0;
    QTest::newRow("a little over") << 96.06 << fullHd << 96;
    QTest::newRow("nearly two hundredths over") << 97.9 << fullHd << 96;
    QTest::newRow("more than two hundredths over") << 98.1 << fullHd << 0;
    QTest::newRow("a little under 125 %") << 119.9 << fullHd << 120;
    QTest::newRow("less than 100 %") << 72.0 << fullHd << 96;
    QTest::newRow("150 % on Full HD") << 144.0 << fullHd << 134;
    QTest::newRow("125 %, just wide enough") << 120.0 << QSize(1708, 1080) << 0;
    QTest::newRow("125 %, a pixel too narrow") << 120.0 << QSize(1707, 1080) << 119;
    QTest::newRow("too low") << 192.0 << QSize(2880, 1000) << 148;
    QTest::newRow("no room at all") << 120.0 << QSize(1280, 720) << 96;
    QTest::newRow("no room without scaling") << 96.0 << QSize(1024, 600) << 0;
}

void TestScaling::dpi()
{
    QFETCH(const double, asked);
    QFETCH(const QSize, room);
    QFETCH(const int, given);
    QCOMPARE(Scaling::dpiFor(Desktop{asked, room}), given);
    QCOMPARE(Scaling::dpiFor({}), 0); // no desktop at all
}

void TestScaling::place_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<QPoint>("place");

    QTest::newRow("fits") << QRect(300, 50, 1300, 640) << QPoint(300, 50);
    QTest::newRow("too far right") << QRect(700, 50, 1300, 640) << QPoint(320, 50);
    QTest::newRow("wider than the screen") << QRect(700, 50, 1700, 640) << QPoint(20, 50);
    QTest::newRow("begins left of the screen") << QRect(-30, 50, 1300, 640) << QPoint(-30, 50);
}

void TestScaling::place()
{
    QFETCH(const QRect, frame);
    QFETCH(const QPoint, place);
    QCOMPARE(Scaling::placeOn(QRect(20, 0, 1600, 900), frame), place);
}

void TestScaling::userOverridesVariables()
{
    const char *const name = "QT_XCB_GL_INTEGRATION";
    for (const char *byUser : {"", "xcb_egl"}) {
        qunsetenv(name);
        if (*byUser)
            qputenv(name, byUser);
        Scaling::StartVariables variables;
        QCOMPARE(qgetenv(name), QByteArray(*byUser ? byUser : "none"));
        variables.takeBack();
        QCOMPARE(qgetenv(name), QByteArray(byUser)); // for programs that are started from ours
    }
}

QTEST_GUILESS_MAIN(TestScaling)
#include "test_scaling.moc"
