#include "support/X1Desktop.h"

#include "data/Cfg.h"
#include "data/ItemDetail.h"
#include "support/CatalogueBytes.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QImage>

namespace tvtest {

bool SetUpX1Desktop(const QString& root)
{
    using namespace tv;
    for (const char* d : {"app/TORVBOOT", "tmp", "images", "snap", "emu"})
        QDir(root).mkpath(d);
    AppDir = root + "/app";
    WorkDir = AppDir + "/TORVBOOT";
    EnvTmpDir = EnvTempDir = root + "/tmp";
    PeekDir = EnvTmpDir + "/TORVBOOT";
    WindowsDir = "/etc";
    SystemDir = "/usr";
    KeyPrefix = "K";
    TitleClosed = 1;
    InitTables();
    SetDefaultCfg(Cfg);
    Cfg.XmilUse = 1;
    Cfg.XmilDir = root + "/emu";
    Cfg.WinSendWait = 0;
    ResolveCfgDirs(Cfg);
    ImageDir[2] = root + "/images";
    SnapDir[2] = root + "/snap";
    NoImagePicture = QImage(8, 8, QImage::Format_RGB32);
    NoImagePicture.fill(Qt::gray);
    HardWare = 2;
    TrayWindowState = 0;

    QByteArray b = LstHeaderBytes(2);
    LstFields f;
    f.title = QStringLiteral("ゲーム");
    f.start = QStringLiteral("GAME.D88");
    f.jitu = root + "/images/GAME.D88";
    f.defEmu = 2; // X millennium
    b += MakeLstRecord(2, f);
    return WriteBytes(AppDir + "/TORVANE.LX1", b);
}

const QByteArray& UsersXmilIni()
{
    static const QByteArray users("[Xmillennium]\r\nStartDir=C:\\MINE\r\n");
    return users;
}

bool WriteXmilIniAndImage(const QString& root)
{
    return WriteBytes(root + "/emu/Xmillennium.ini", UsersXmilIni()) &&
           WriteBytes(root + "/images/GAME.D88", QByteArray(1024, 'g'));
}

} // namespace tvtest
