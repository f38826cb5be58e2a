#include "fuzz/target.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace {

/** Qt warns of odd inputs; thousands of them a second would drown what libFuzzer tells. */
void keepQuiet(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (type != QtFatalMsg)
        return;
    std::fprintf(stderr, "%s\n", qPrintable(message));
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    qInstallMessageHandler(keepQuiet);
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    static const QCoreApplication application(count, arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    tryInput(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}

void expect(bool holds, const char *sentence)
{
    if (holds)
        return;
    std::fprintf(stderr, "This does not hold: %s\n", sentence);
    std::abort();
}

ScratchFile::ScratchFile(const QByteArray &content, const QString &ending)
{
    static const QTemporaryDir folder;
    static quint64 number = 0;
    m_path = folder.filePath(QString::number(++number) + ending);
    QFile file(m_path);
    expect(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
           "an input can be written into the folder for temporary files");
}

ScratchFile::~ScratchFile()
{
    QFile::remove(m_path);
}
