// Generates PC-88 catalogues of 10,000 and 50,000 titles in a temporary program directory,
// times LoadList with a title sort (offscreen, with the yield at each row) and reports the
// peak memory of the process. Run: QT_QPA_PLATFORM=offscreen catalogue_bench [counts...]
#include "data/ByteCodec.h"
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/MainMenus.h"
#include "util/Globals.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMainWindow>
#include <QTemporaryDir>
#include <cstdio>
#include <sys/resource.h>

using namespace tv;

static void generate(const QString& path, int count)
{
    QFile f(path);
    f.open(QIODevice::WriteOnly | QIODevice::Truncate);
    f.write(LstHeader(0));
    const QString kana = QStringLiteral("アイウエオカキクケコサシスセソタチツテトナニヌネノ");
    LstRecord r;
    for (int i = 0; i < count; ++i) {
        // Titles in a scrambled order so that the sort has work to do.
        const int k = int((uint32_t(i) * 2654435761u) % uint32_t(count));
        r.Title = kana.mid(k % 20, 4) + QStringLiteral("の冒険 第%1巻").arg(k);
        r.Genre = QStringLiteral("ＲＰＧ");
        r.Maker = QStringLiteral("メーカー%1").arg(k % 97);
        r.SaleDate = QStringLiteral("19%1/%2").arg(80 + k % 10).arg(1 + k % 12);
        r.Comment = QStringLiteral("コメント\r\n二行目");
        r.StartFileName = QStringLiteral("GAME%1.D88").arg(i);
        r.JituFile = QStringLiteral("C:\\GAMES\\PC88\\GAME%1.LZH").arg(i);
        f.write(EncodeLstRecord(0, r));
    }
}

static long peakKb()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_maxrss;
}

int main(int argc, char** argv)
{
    // Measured offscreen unless a display is asked for explicitly.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QList<int> counts;
    for (int i = 1; i < argc; ++i)
        counts << QString::fromLocal8Bit(argv[i]).toInt();
    if (counts.isEmpty())
        counts = {10000, 50000};
    QTemporaryDir root;
    QDir(root.path()).mkpath("app");
    AppDir = root.path() + "/app";
    EnvTmpDir = EnvTempDir = root.path() + "/tmp";
    WindowsDir = "/etc";
    SystemDir = "/usr";
    SetDefaultCfg(Cfg);
    Cfg.SortKey = 2; // title ascending
    TitleClosed = 1;
    HardWare = 0;
    for (int n : counts) {
        generate(LstFilePath(0), n);
        QMainWindow win;
        MainMenus menus;
        CatalogueWidgets w = CatalogueUi::BuildStandalone(&win, &menus);
        if (qEnvironmentVariableIsSet("BENCH_NOYIELD"))
            w.yield = [] {};
        CatalogueUi ui(w);
        win.resize(1000, 700);
        win.show();
        QCoreApplication::processEvents();
        const long before = peakKb();
        QElapsedTimer t;
        t.start();
        ui.LoadList();
        const qint64 ms = t.elapsed();
        std::printf("%d titles: LoadList with title sort %lld ms, rows %d, peak RSS %.1f MB "
                    "(before fill %.1f MB)\n",
                    n, static_cast<long long>(ms), ui.model()->rowCount(), peakKb() / 1024.0,
                    before / 1024.0);
        std::fflush(stdout);
    }
    return 0;
}
