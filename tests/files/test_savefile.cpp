#include "files/path.h"
#include "files/savefile.h"
#include "support/files.h"
#include "support/fulldisk.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <linux/capability.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#endif

namespace {

constexpr int Lines = 400;
const QByteArray Old(3000, 'o');

void writeLines(QTextStream &out)
{
    for (int line = 0; line < Lines; ++line)
        out << "line " << line << " of a text that is new" << Qt::endl;
}

QByteArray newText()
{
    return asWritten(streamed(writeLines));
}

QStringList namesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
}

} // namespace

/** What lies at a path after a text has been saved there, and after that has failed or was cut short. */
class TestSaveFile final : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void paths_data();
    void paths();
    void replaces_data();
    void replaces();
    void noFile_data();
    void noFile();
#ifdef Q_OS_UNIX // Windows has no such pipes, links, modes and limits
    void whatIsNoFileStays_data();
    void whatIsNoFileStays();
    void keepsPermissions_data();
    void keepsPermissions();
    void newFileHasThoseOfAll();
    void followsLinks_data();
    void followsLinks();
    void endedAmidWriting();
#endif
#ifdef Q_OS_LINUX
    void folderThatTakesNoFiles_data();
    void folderThatTakesNoFiles();
    void fullDisk_data();
    void fullDisk();
    void endedAtAnyCall_data();
    void endedAtAnyCall();
#endif

private:
    QString in(const QString &name) const
    {
        return m_folder->filePath(name);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestSaveFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void TestSaveFile::paths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isPath");
    QTest::addColumn<bool>("exists");
    QTest::newRow("file") << "there" << true << true;
    QTest::newRow("no file") << "gone" << true << false;
    QTest::newRow("no text") << QString() << false << false;
    QTest::newRow("cut off") << QString("there") + QChar::Null << false << false;
    QTest::newRow("cut in two") << QString("there") + QChar::Null + ".xml" << false << false;
}

void TestSaveFile::paths()
{
    QFETCH(const QString, path);
    QVERIFY(writeFile(in("there"), Old));
    const QString full = path.isEmpty() ? path : in(path);
    QTEST(isPath(full), "isPath");
    QTEST(pathExists(full), "exists");
}

void TestSaveFile::replaces_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("before"); // bytes; -1 where there is no file
    QTest::newRow("new") << "file" << -1;
    QTest::newRow("empty") << "file" << 0;
    QTest::newRow("shorter") << "file" << 1000;
    QTest::newRow("longer") << "file" << 1000000;
#ifdef Q_OS_UNIX
    const QString longName(250, 'l'); // beside it no file can stand whose name is longer
    QTest::newRow("empty, in its place") << longName << 0;
    QTest::newRow("shorter, in its place") << longName << 1000;
    QTest::newRow("longer, in its place") << longName << 1000000;
#endif
}

void TestSaveFile::replaces()
{
    QFETCH(const QString, name);
    QFETCH(const int, before);
    QVERIFY(before < 0 || writeFile(in(name), QByteArray(before, 'o')));
    QVERIFY(saveText(in(name), writeLines));
    QCOMPARE(bytesOf(in(name)), newText());
    QCOMPARE(namesIn(m_folder->path()), QStringList{name});
}

void TestSaveFile::noFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no text") << QString();
    QTest::newRow("name that the system would cut off") << QString("/there") + QChar::Null + ".xml";
    QTest::newRow("folder") << "/folder";
    QTest::newRow("in a missing folder") << "/gone/file.xml";
    QTest::newRow("in a file") << "/there/file.xml";
}

void TestSaveFile::noFile()
{
    QFETCH(const QString, path);
    QVERIFY(QDir(m_folder->path()).mkdir("folder"));
    QVERIFY(writeFile(in("there"), Old));
    QVERIFY(!saveText(path.isEmpty() ? path : m_folder->path() + path, writeLines));
    QCOMPARE(bytesOf(in("there")), Old);
    QCOMPARE(namesIn(m_folder->path()), QStringList({"folder", "there"}));
    QCOMPARE(namesIn(in("folder")), QStringList());
}

#ifdef Q_OS_UNIX
namespace {

mode_t modeOf(const QString &path)
{
    struct stat about = {};
    return stat(QFile::encodeName(path).constData(), &about) == 0 ? about.st_mode & 07777 : 0;
}

bool setMode(const QString &path, mode_t mode)
{
    return chmod(QFile::encodeName(path).constData(), mode) == 0;
}

/** A socket in a folder; it goes with the process. */
bool makeSocket(const QString &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, QFile::encodeName(path).constData(), sizeof address.sun_path);
    return bind(socket(AF_UNIX, SOCK_STREAM, 0), reinterpret_cast<const sockaddr *>(&address), sizeof address)
           == 0;
}

/** Runs a function in a child process; how that ended, as waitpid() tells. */
int endOf(const std::function<void()> &run)
{
    const pid_t child = fork();
    if (child == 0) {
        const rlimit none = {0, 0};
        setrlimit(RLIMIT_CORE, &none);
        run();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

} // namespace

void TestSaveFile::whatIsNoFileStays_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"pipe", "link to a pipe", "socket", "device", "full", "ring", "link to a folder"})
        QTest::newRow(name) << name;
}

void TestSaveFile::whatIsNoFileStays()
{
    QFETCH(const QString, name);
    QCOMPARE(mkfifo(QFile::encodeName(in("pipe")).constData(), 0600), 0);
    QVERIFY(makeSocket(in("socket")));
    for (const auto &[target, link] : QMap<QString, QString>{
             {in("pipe"), "link to a pipe"},
             {"/dev/null", "device"},
             {"/dev/full", "full"},
             {in("other ring"), "ring"},
             {in("ring"), "other ring"},
             {m_folder->path(),
              "link to a folder"}}.toStdMap())
        QVERIFY(QFile::link(target, in(link)));
    const QStringList before = namesIn(m_folder->path());

    QVERIFY(!saveText(in(name), writeLines));
    QCOMPARE(namesIn(m_folder->path()), before);
    QVERIFY(!QFileInfo(in(name)).isFile());
}

void TestSaveFile::keepsPermissions_data()
{
    QTest::addColumn<mode_t>("mode");
    for (const mode_t mode : {0600U, 0640U, 0666U, 0777U})
        QTest::addRow("%o", mode) << mode;
}

void TestSaveFile::keepsPermissions()
{
    QFETCH(const mode_t, mode);
    QVERIFY(writeFile(in("file"), Old) && setMode(in("file"), mode));
    QVERIFY(saveText(in("file"), writeLines));
    QCOMPARE(modeOf(in("file")), mode);
}

void TestSaveFile::newFileHasThoseOfAll()
{
    const mode_t before = umask(027);
    const bool isSaved = saveText(in("file"), writeLines);
    umask(before);
    QVERIFY(isSaved);
    QCOMPARE(modeOf(in("file")), mode_t(0640));
}

void TestSaveFile::followsLinks_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<QString>("target"); // of the last link, from the folder that it lies in
    QTest::newRow("file") << true << "target";
    QTest::newRow("no file yet") << false << "target";
    QTest::newRow("file in another folder") << true << "../target";
    QTest::newRow("no file yet in another folder") << false << "../target";
}

void TestSaveFile::followsLinks()
{
    QFETCH(const bool, isThere);
    QFETCH(const QString, target);
    QVERIFY(QDir(m_folder->path()).mkdir("folder"));
    const QString path = QDir::cleanPath(in("folder/" + target));
    QVERIFY(!isThere || writeFile(path, Old));
    QCOMPARE(symlink(QFile::encodeName(target).constData(), QFile::encodeName(in("folder/last")).constData()),
             0);
    QCOMPARE(symlink("folder/last", QFile::encodeName(in("first")).constData()), 0);

    QVERIFY(saveText(in("first"), writeLines));
    QVERIFY(QFileInfo(in("first")).isSymLink() && QFileInfo(in("folder/last")).isSymLink());
    QVERIFY(!QFileInfo(path).isSymLink());
    QCOMPARE(bytesOf(path), newText());
}

void TestSaveFile::endedAmidWriting()
{
    QVERIFY(writeFile(in("file"), Old));
    int ends = 0;
    for (int bytesLeft = 1; bytesLeft < newText().size(); bytesLeft += newText().size() / 60) {
        const int status = endOf([this, bytesLeft] {
            const rlimit limit = {static_cast<rlim_t>(bytesLeft), RLIM_INFINITY};
            setrlimit(RLIMIT_FSIZE, &limit);
            saveText(in("file"), writeLines); // the signal for a file that is too large ends a process
        });
        ends += WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ;
        QCOMPARE(bytesOf(in("file")), Old);
    }
    QVERIFY(ends >= 50);
}
#endif

#ifdef Q_OS_LINUX
namespace {

/** For as long as it lives, modes of files hold for the administrator, too. */
class OrdinaryUser final
{
public:
    OrdinaryUser()
    {
        syscall(SYS_capget, &m_header, m_before);
        __user_cap_data_struct without[2] = {m_before[0], m_before[1]};
        without[0].effective &= ~(1U << CAP_DAC_OVERRIDE);
        syscall(SYS_capset, &m_header, without);
    }
    ~OrdinaryUser() { syscall(SYS_capset, &m_header, m_before); }
    Q_DISABLE_COPY(OrdinaryUser)

private:
    __user_cap_header_struct m_header = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct m_before[2] = {};
};

/**
 * Runs a function in a child process, and ends that before or behind one of its system calls.
 *
 * @param stop  which, from 1: odd ones are before a call, even ones behind it
 * @return      false where the function came to its end before
 */
bool endedAt(int stop, const std::function<void()> &run)
{
    const pid_t child = fork();
    if (child == 0) {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
        run();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    for (int i = 0; i < stop && WIFSTOPPED(status); ++i) {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        waitpid(child, &status, 0);
    }
    if (!WIFSTOPPED(status))
        return false;
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    return true;
}

} // namespace

void TestSaveFile::folderThatTakesNoFiles_data()
{
    QTest::addColumn<mode_t>("mode");
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("file that can be written") << mode_t(0600) << true;
    QTest::newRow("file that cannot") << mode_t(0400) << false;
    QTest::newRow("no file") << mode_t(0) << false;
}

void TestSaveFile::folderThatTakesNoFiles()
{
    QFETCH(const mode_t, mode);
    QVERIFY(QDir(m_folder->path()).mkdir("closed"));
    QVERIFY(!mode || (writeFile(in("closed/file"), Old) && setMode(in("closed/file"), mode)));
    QVERIFY(setMode(in("closed"), 0500));
    bool isSaved = false;
    {
        const OrdinaryUser user;
        isSaved = saveText(in("closed/file"), writeLines);
    }
    QVERIFY(setMode(in("closed"), 0700));
    QTEST(isSaved, "isSaved");
    QCOMPARE(bytesOf(in("closed/file")), isSaved ? newText() : mode ? Old : QByteArray("no file"));
    QCOMPARE(namesIn(in("closed")), mode ? QStringList{"file"} : QStringList());
}

void TestSaveFile::fullDisk_data()
{
    QTest::addColumn<bool>("isClosed"); // the folder, so that the file is written in its place
    QTest::addColumn<int>("before");    // bytes; -1 where there is no file
    QTest::newRow("new") << false << -1;
    for (const bool isClosed : {false, true}) {
        const char *how = isClosed ? "written over" : "replaced";
        QTest::addRow("%s: empty", how) << isClosed << 0;
        QTest::addRow("%s: shorter", how) << isClosed << 1000;
        QTest::addRow("%s: as long", how) << isClosed << newText().size();
        QTest::addRow("%s: longer", how) << isClosed << 100000;
    }
}

void TestSaveFile::fullDisk()
{
    QFETCH(const bool, isClosed);
    QFETCH(const int, before);
    const QByteArray old = before < 0 ? QByteArray("no file") : QByteArray(before, 'o');
    QVERIFY(before < 0 || writeFile(in("file"), old));
    QVERIFY(!isClosed || setMode(m_folder->path(), 0500));
    for (int bytesLeft = 0; bytesLeft < newText().size(); bytesLeft += newText().size() / 20) {
        bool isSaved = true;
        {
            const OrdinaryUser user;
            const FullDisk disk(static_cast<rlim_t>(bytesLeft));
            isSaved = saveText(in("file"), writeLines);
        }
        QVERIFY(!isSaved);
        QCOMPARE(bytesOf(in("file")), old);
        QCOMPARE(namesIn(m_folder->path()), before < 0 ? QStringList() : QStringList{"file"});
    }
    QVERIFY(setMode(m_folder->path(), 0700));
}

void TestSaveFile::endedAtAnyCall_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::newRow("file") << true;
    QTest::newRow("no file yet") << false;
}

void TestSaveFile::endedAtAnyCall()
{
    QFETCH(const bool, isThere);
    const QByteArray old = isThere ? Old : QByteArray("no file");
    int stops = 0;
    int olds = 0;
    for (bool isEnded = true; isEnded; ++stops) {
        init(); // what the ended ones leave beside the file would be in the way: all children have the same random numbers
        QVERIFY(!isThere || writeFile(in("file"), Old));
        isEnded = endedAt(stops + 1, [this] { saveText(in("file"), writeLines); });
        const QByteArray left = bytesOf(in("file"));
        QVERIFY2(left == old || left == newText(), qPrintable(QString("stop %1").arg(stops)));
        olds += left == old;
    }
    QVERIFY2(stops >= 20 && olds < stops, qPrintable(QString("%1 of %2").arg(olds).arg(stops)));
}
#endif

QTEST_GUILESS_MAIN(TestSaveFile)
#include "test_savefile.moc"
