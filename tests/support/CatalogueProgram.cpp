#include "support/CatalogueProgram.h"

#include "support/CatalogueBytes.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QThread>

namespace tvtest {

namespace {

bool fail(QString* why, const QString& text)
{
    if (why)
        *why = text;
    return false;
}

// A screenshot as an emulator would save it: a night sky, hills, and a solid block of the
// test colour in the middle, which survives any scaling of the picture.
QImage makeShot()
{
    QImage img(640, 400, QImage::Format_RGB32);
    QPainter p(&img);
    QLinearGradient sky(0, 0, 0, 400);
    sky.setColorAt(0, QColor(10, 12, 60));
    sky.setColorAt(1, QColor(90, 40, 120));
    p.fillRect(img.rect(), sky);
    p.setBrush(QColor(20, 60, 30));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QPoint(120, 430), 260, 120);
    p.drawEllipse(QPoint(520, 450), 300, 130);
    p.setBrush(QColor(250, 240, 180));
    for (int i = 0; i < 24; ++i)
        p.drawEllipse(QPoint((i * 97) % 640, (i * 53) % 180 + 10), 2, 2);
    p.fillRect(QRect(220, 130, 200, 140), CatalogueProgram::shotColour());
    QFont f;
    f.setPixelSize(28);
    f.setBold(true);
    p.setFont(f);
    p.setPen(Qt::white);
    p.drawText(QRect(0, 20, 640, 40), Qt::AlignCenter, QStringLiteral("STAGE 1"));
    return img;
}

} // namespace

bool CatalogueProgram::setUp(QString* why)
{
    if (!root_.isValid())
        return fail(why, QStringLiteral("no temporary directory"));
    const QString a = app();
    for (const QString& d : {a, tmp(), temp(), a + "/snap", a + "/images", a + "/emu/P88SR",
                             a + "/emu/M88", a + "/emu/X88000", a + "/save/p88", a + "/save/m88"})
        if (!QDir().mkpath(d))
            return fail(why, QStringLiteral("mkpath ") + d);
    // A copy, not a link: the program directory is that of the resolved executable.
    if (!QFile::copy(QStringLiteral(TORVANE_BIN_DIR) + "/torvane", program()))
        return fail(why, QStringLiteral("copy of the program"));
    QFile(program()).setPermissions(QFileDevice::ExeOwner | QFileDevice::ReadOwner |
                                    QFileDevice::WriteOwner);
    for (const QString& f : {a + "/emu/P88SR/P88SR.EXE", a + "/emu/M88/M88.EXE",
                             a + "/emu/X88000/X88000.EXE", a + "/save/p88/ASTERION.SV0",
                             a + "/save/p88/ASTERION.SV3", a + "/save/m88/ASTERION_1.S88"})
        if (!WriteBytes(f, "x"))
            return fail(why, QStringLiteral("write ") + f);
    if (!makeShot().save(a + "/snap/ASTERION.PNG", "PNG"))
        return fail(why, QStringLiteral("screenshot"));

    struct Title {
        const char *title, *genre, *maker, *col1, *col2, *sale, *comment, *start, *jitu, *scr, *man;
        uint8_t arc, rearc, defEmu;
    };
    const Title list[] = {
        {"雪花物語 ～白銀の章～", "RPG", "ソフトハウス楓", "mkIISR", "5inch 2D", "1986/12",
         "雪の降る北の村を舞台にした長編ロールプレイング。\r\n全三章の第一章。", "SETSUKA.D88",
         "C:\\GAMES\\PC88\\SETSUKA.LZH", "", "", 1, 2, 1},
        {"魔導城アステリオン", "アクション", "北斗システム", "mkIISR", "5inch 2D", "1987/03",
         "城の最上階に眠る魔導書を求めて、\r\n百の部屋を抜けていく。\r\nセーブは二箇所。",
         "ASTERION.D88", "C:\\GAMES\\PC88\\ASTERION.D88", "C:\\GAMES\\SNAP\\ASTERION.PNG",
         "C:\\GAMES\\MANUAL\\ASTERION.TXT", 0, 0, 2},
        {"銀河探偵ミルフィーユ", "アドベンチャー", "ミナトデータ", "mkII", "テープ", "1985/08",
         "宇宙港で起きた事件を追う。", "MILFY.T88", "C:\\GAMES\\PC88\\MILFY.T88", "", "", 0, 0, 2},
        {"鋼鉄騎兵ガルヴァス", "シューティング", "北斗システム", "mkIISR", "テープ", "1988/01",
         "縦スクロール。\r\n二人同時プレイ可能。", "GALVAS.CMT", "C:\\GAMES\\PC88\\GALVAS.CMT", "",
         "", 0, 0, 4},
        {"ふしぎの森のポポロン", "パズル", "ソフトハウス楓", "mkIISR", "5inch 2D", "1987/11",
         "森の動物たちを家へ帰すパズル。", "POPORON.D88", "C:\\GAMES\\PC88\\POPORON.ZIP", "", "", 1,
         1, 0},
        {"月影伝説", "アクションRPG", "ミナトデータ", "mkIISR", "5inch 2D", "1988/07",
         "月の欠けた夜にだけ開く扉がある。", "TSUKIKA.D88", "C:\\GAMES\\PC88\\TSUKIKA.D88", "", "",
         0, 0, 2},
    };
    lst_ = LstHeaderBytes(0);
    titles_.clear();
    for (const Title& t : list) {
        LstFields f;
        f.title = QString::fromUtf8(t.title);
        f.genre = QString::fromUtf8(t.genre);
        f.maker = QString::fromUtf8(t.maker);
        f.col1 = QString::fromUtf8(t.col1);
        f.col2 = QString::fromUtf8(t.col2);
        f.sale = QString::fromUtf8(t.sale);
        f.comment = QString::fromUtf8(t.comment);
        f.start = QString::fromUtf8(t.start);
        f.jitu = QString::fromUtf8(t.jitu);
        f.scr = QString::fromUtf8(t.scr);
        f.man = QString::fromUtf8(t.man);
        f.arc = t.arc;
        f.rearc = t.rearc;
        f.defEmu = t.defEmu;
        lst_ += MakeLstRecord(0, f);
        titles_ << f.title;
    }
    if (!WriteBytes(a + "/TORVANE.LST", lst_))
        return fail(why, QStringLiteral("catalogue"));

    tv::CfgRecord& c = cfgRecord_;
    tv::SetDefaultCfg(c);
    c.LastHardWare = 0;
    c.ViewScrCom = 1;
    c.ViewGrid = 0;
    c.ScrSearchRead = 1;
    c.LstSelectSave = 1;
    c.LstSelectPos = selectedSeek();
    c.SortKey = 0;
    c.ImageDir[0] = a + "/images";
    c.SnapDir[0] = a + "/snap";
    c.FreeColName1 = QStringLiteral("機種");
    c.FreeColName2 = QStringLiteral("媒体");
    c.P88srUse = c.M88Use = c.X88kUse = 1;
    c.P88srDir = a + "/emu/P88SR";
    c.M88Dir = a + "/emu/M88";
    c.X88kDir = a + "/emu/X88000";
    c.P88SaveDir = a + "/save/p88";
    c.M88SaveDir = a + "/save/m88";
    cfg_ = tv::EncodeCfg(c);
    if (!WriteBytes(a + "/TORVANE.CFG", cfg_))
        return fail(why, QStringLiteral("configuration"));
    return true;
}

QProcessEnvironment CatalogueProgram::environment(const QString& platform) const
{
    QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
    e.insert("TMP", tmp());
    e.insert("TEMP", temp());
    e.insert("QT_QPA_PLATFORM", platform);
    return e;
}

bool CatalogueProgram::start(QProcess& p, const QString& platform) const
{
    p.setProcessEnvironment(environment(platform));
    p.setWorkingDirectory(root());
    p.setProcessChannelMode(QProcess::ForwardedChannels);
    p.start(program(), {});
    return p.waitForStarted(5000);
}

bool CatalogueProgram::waitUntilUp(const QProcess& p, int timeoutMs) const
{
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < timeoutMs && !QFileInfo(app() + "/TORVBOOT").isDir() &&
           p.state() == QProcess::Running)
        QThread::msleep(50);
    if (!QFileInfo(app() + "/TORVBOOT").isDir())
        return false;
    // The splash stays up one second after the list is filled.
    QThread::msleep(2000);
    return p.state() == QProcess::Running;
}

void CatalogueProgram::stop(QProcess& p)
{
    if (p.state() == QProcess::NotRunning)
        return;
    p.terminate();
    if (!p.waitForFinished(3000)) {
        p.kill();
        p.waitForFinished(3000);
    }
}

} // namespace tvtest
