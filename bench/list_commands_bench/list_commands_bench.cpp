// Generates a PC-88 catalogue of 50,000 titles (or the count given) in a temporary program
// directory, fills the rows sorted by title, and times: a search that scans every row (title
// and sub-items, partial and whole), and the deletion of the first record with the re-keying
// of every row. Run: list_commands_bench [count]
#include "data/ByteCodec.h"
#include "data/Cfg.h"
#include "data/ListCommands.h"
#include "data/TitleListModel.h"
#include "data/clsLst.h"
#include "util/Globals.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cstdio>

using namespace tv;

static void generate(const QString& path, int count)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return;
    f.write(LstHeader(0));
    const QString kana = QStringLiteral("アイウエオカキクケコサシスセソタチツテトナニヌネノ");
    LstRecord r;
    for (int i = 0; i < count; ++i) {
        const int k = int((uint32_t(i) * 2654435761u) % uint32_t(count));
        r.Title = kana.mid(k % 20, 4) + QStringLiteral("の冒険 第%1巻").arg(k);
        r.Genre = QStringLiteral("ＲＰＧ");
        r.Maker = QStringLiteral("メーカー%1").arg(k % 97);
        r.Column1 = QStringLiteral("5\"2D");
        r.SaleDate = QStringLiteral("19%1/%2").arg(80 + k % 10).arg(1 + k % 12);
        r.StartFileName = QStringLiteral("GAME%1.D88").arg(i);
        f.write(EncodeLstRecord(0, r));
    }
}

template <typename F> static double timeMs(F&& f)
{
    QElapsedTimer t;
    t.start();
    f();
    return double(t.nsecsElapsed()) / 1e6;
}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const int count = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 50000;
    QTemporaryDir root;
    QDir(root.path()).mkpath("app");
    QDir(root.path()).mkpath("tmp");
    AppDir = root.path() + "/app";
    EnvTmpDir = EnvTempDir = root.path() + "/tmp";
    WindowsDir = "/etc";
    SystemDir = "/usr";
    KeyPrefix = "K";
    SetDefaultCfg(Cfg);
    generate(AppDir + "/TORVANE.LST", count);

    TitleListModel model;
    FillTitleList(model, 0, [](int32_t, int32_t) {});
    model.applySortKey(2); // by title: rows stand in another order than the records
    std::printf("rows: %d\n", model.rowCount());

    int hit = -2;
    const double missTitle = timeMs(
        [&] { hit = FindListRow(model, QStringLiteral("存在しない"), kFindTitle, 0, false); });
    std::printf("search, title, partial, no hit (every row):     %8.2f ms (hit %d)\n", missTitle,
                hit);
    const double missSub = timeMs(
        [&] { hit = FindListRow(model, QStringLiteral("存在しない"), kFindSubItems, 0, true); });
    std::printf("search, sub-items, whole, no hit (every row):   %8.2f ms (hit %d)\n", missSub,
                hit);
    const QString lastTitle = model.row(model.rowCount() - 1).text[0];
    const double last =
        timeMs([&] { hit = FindListRow(model, lastTitle.toLower(), kFindTitle, 0, true); });
    std::printf("search, title, whole, hit on the last row:      %8.2f ms (hit %d)\n", last, hit);

    const int first = model.rowOfSeek(25);
    DeleteItemResult result = DeleteItemResult::NoRow;
    const double del = timeMs([&] { result = DeleteListItem(model, first); });
    std::printf("delete the first record, re-key %d rows:     %8.2f ms (%s)\n", model.rowCount(),
                del, result == DeleteItemResult::Deleted ? "deleted" : "FAILED");
    const double rekey = timeMs([&] {
        const QString prefix = NextKeyPrefix(KeyPrefix);
        model.rekeyRows(
            [&](const QString& key) { return RekeyAfterRemoval(key, prefix, 25, 2284); });
    });
    std::printf("re-keying alone of %d rows:                  %8.2f ms\n", model.rowCount(), rekey);
    return result == DeleteItemResult::Deleted ? 0 : 1;
}
