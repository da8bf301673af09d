// Makes a temporary program directory and times two drops on an empty PC-88 catalogue through
// the drop's core, yields to the event loop included: 1,000 plain D88 images, each with a text
// file beside it and text import on; and 200 ZIP archives of two 348,848-byte disks each, with
// inspection on, so that every archive is unpacked to find its start file. Prints the time of
// each drop and the peak resident memory of the process after it.
// With --window the drops go through frmDDAdd as in the program, progress windows included.
// Run: drop_bench [--window] [images] [archives]
#include "data/Cfg.h"
#include "data/TitleListModel.h"
#include "data/clsLst.h"
#include "launch/ArcProgressDialog_ui.h"
#include "launch/DDAdd.h"
#include "platform/MsgBox.h"
#include "registration/frmDDAdd.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>
#include <sys/resource.h>

using namespace tv;

static long peakKb()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_maxrss;
}

static bool write(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

// A disk image that packs about as well as a real one: sectors of data among empty ones.
static QByteArray disk(uint32_t number)
{
    QByteArray b(348848, '\0');
    uint32_t x = number * 2654435761u + 1;
    for (qsizetype i = 0; i < b.size(); ++i) {
        if ((i / 256) % 3 == 0)
            continue;
        x = x * 1103515245u + 12345u;
        b[i] = char((x >> 16) & 0x3f);
    }
    return b;
}

// Through the drop's core alone, or through its window (shown, with its progress bar and the
// archivers' progress windows) as the program does it.
static bool withWindow = false;

static double drop(const QStringList& files, int* registered, int* failures)
{
    TitleListModel model;
    QElapsedTimer t;
    t.start();
    if (withWindow) {
        frmDDAdd w(files, nullptr, nullptr);
        w.show();
        w.SearchDDAdd();
        *registered = w.core().registered();
        *failures = w.core().failures();
        return double(t.nsecsElapsed()) / 1e6;
    }
    DDAdd d(files, &model);
    d.yield = [] { QCoreApplication::processEvents(); };
    if (!d.Begin())
        return -1;
    d.Search();
    d.End();
    *registered = d.registered();
    *failures = d.failures();
    return double(t.nsecsElapsed()) / 1e6;
}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    withWindow = args.removeAll(QStringLiteral("--window")) > 0;
    if (withWindow)
        InstallArcProgressDialog();
    const int images = args.size() > 0 ? args[0].toInt() : 1000;
    const int archives = args.size() > 1 ? args[1].toInt() : 200;
    std::printf("%s\n", withWindow ? "through frmDDAdd, shown, with the archivers' progress windows"
                                   : "through the drop's core");
    SetMsgBoxHandler([](const MsgBoxCall& c) {
        std::fprintf(stderr, "box: %s\n", c.text.toUtf8().constData());
        return DefaultMsgBoxAnswer(c.flags);
    });
    QTemporaryDir root;
    for (const char* d : {"app/TORVBOOT", "tmp", "temp", "images", "archives", "src"})
        QDir(root.path()).mkpath(d);
    AppDir = root.path() + "/app";
    WorkDir = AppDir + "/TORVBOOT";
    EnvTmpDir = root.path() + "/tmp";
    EnvTempDir = root.path() + "/temp";
    PeekDir = EnvTmpDir + "/TORVBOOT";
    WindowsDir = "/etc";
    SystemDir = "/usr";
    InitTables();
    SetDefaultCfg(Cfg);
    HardWare = 0;
    ImageDir[0] = root.path() + "/images";
    SnapDir[0] = AppDir;

    // 1,000 images, each with its text file.
    QStringList files;
    const QByteArray image(1024, 'i');
    for (int i = 0; i < images; ++i) {
        const QString stem =
            root.path() + QStringLiteral("/images/GAME%1").arg(i, 4, 10, QLatin1Char('0'));
        write(stem + ".D88", image);
        write(
            stem + ".txt",
            ToSjis(
                QStringLiteral(
                    "タイトル：星の冒険 第%1巻\r\nジャンル：ＲＰＧ\r\nメーカー：ソフトハウス%2\r\n"
                    "コメント：三枚組。\r\n遊び方は説明書をご覧下さい。\r\n")
                    .arg(i)
                    .arg(i % 37)));
        files << stem + ".D88";
    }
    WriteNewCatalogue(0);
    Cfg.TxtIn = 1;
    Cfg.ScrAutoRead = 1;
    int ok = 0, bad = 0;
    const double imagesMs = drop(files, &ok, &bad);
    std::printf("%d images, text import on: %.0f ms (%d registered, %d refused), peak %ld KB\n",
                images, imagesMs, ok, bad, peakKb());
    // The last record, as a check that the text was read.
    LstObj.InitLst(0);
    if (LstObj.GetLstMaxCnt() > 0 &&
        LstObj.GetLst(25 + (LstObj.GetLstMaxCnt() - 1) * LstRecordLength(0)))
        std::printf("  last title: %s / %s\n", LstObj.GetTitle().toUtf8().constData(),
                    LstObj.GetMaker().toUtf8().constData());

    // 200 archives of two disks each, made once by zip and copied.
    const QString src = root.path() + "/src";
    write(src + "/DISK_A.D88", disk(1));
    write(src + "/DISK_B.D88", disk(2));
    write(src + "/DISK_A.TXT", ToSjis(QStringLiteral("タイトル：二枚組の冒険\r\n")));
    QProcess zip;
    zip.setWorkingDirectory(src);
    zip.start("zip", {"-q", root.path() + "/one.zip", "DISK_A.D88", "DISK_B.D88", "DISK_A.TXT"});
    if (!zip.waitForFinished(60000) || zip.exitCode() != 0) {
        std::printf("zip is needed for the archive drop\n");
        return 1;
    }
    files.clear();
    for (int i = 0; i < archives; ++i) {
        const QString arc =
            root.path() + QStringLiteral("/archives/TITLE%1.ZIP").arg(i, 3, 10, QLatin1Char('0'));
        QFile::copy(root.path() + "/one.zip", arc);
        files << arc;
    }
    WriteNewCatalogue(0);
    Cfg.ArcSerch = 0;
    const double arcMs = drop(files, &ok, &bad);
    std::printf("%d ZIP archives of two disks, inspected: %.0f ms (%d registered, %d refused), "
                "peak %ld KB\n",
                archives, arcMs, ok, bad, peakKb());
    LstObj.InitLst(0);
    if (LstObj.GetLstMaxCnt() > 0 &&
        LstObj.GetLst(25 + (LstObj.GetLstMaxCnt() - 1) * LstRecordLength(0)))
        std::printf("  last title: %s, start file %s\n", LstObj.GetTitle().toUtf8().constData(),
                    LstObj.GetStartFileName().toUtf8().constData());
    return 0;
}
