#include "launch/EmuAdapter.h"

#include "data/clsLst.h"
#include "platform/FileOps.h"
#include "platform/KeySend.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QFile>
#include <QFileInfo>
#include <map>

namespace tv {

const QString kNeedsSwitchesText =
    QStringLiteral("このエミュレータのオプション（設定ファイル・コマンドライン）の生成は"
                   "まだ組み込まれていないため、タイトルを起動できません。");

bool EmuAdapter::ready(const CfgRecord&, QString* why) const
{
    if (why)
        *why = kNeedsSwitchesText;
    return false;
}

LaunchCommand EmuAdapter::bareCommand() const
{
    LaunchCommand cmd(row_.exeName());
    cmd.workingDir = row_.dirOf();
    return cmd;
}

namespace {

std::map<int, std::unique_ptr<EmuAdapter>>& Registered()
{
    static std::map<int, std::unique_ptr<EmuAdapter>> m;
    return m;
}

// The adapter of an emulator whose own hasn't been registered.
std::map<int, std::unique_ptr<EmuAdapter>>& Defaults()
{
    static std::map<int, std::unique_ptr<EmuAdapter>> m;
    return m;
}

} // namespace

void RegisterAdapter(Emu emu, std::unique_ptr<EmuAdapter> adapter)
{
    Registered()[CodeOf(emu)] = std::move(adapter);
}

EmuAdapter* AdapterOf(int code)
{
    const EmuRow* row = FindEmu(code);
    if (!row)
        return nullptr;
    if (auto it = Registered().find(code); it != Registered().end() && it->second)
        return it->second.get();
    auto& d = Defaults()[code];
    if (!d)
        d = std::make_unique<EmuAdapter>(row->emu);
    return d.get();
}

EmuOpt88 ChosenOpt88(uint8_t DefOpt)
{
    if (DefOpt == 1)
        return Cfg.CfgEmuOpt88;
    LstObj.GetEmuOpt88();
    return CurEmuOpt88;
}

EmuOptFM ChosenOptFM(uint8_t DefOpt)
{
    if (DefOpt == 1)
        return Cfg.CfgEmuOptFM;
    LstObj.GetEmuOptFM();
    return CurEmuOptFM;
}

EmuOptX1 ChosenOptX1(uint8_t DefOpt)
{
    if (DefOpt == 1)
        return Cfg.CfgEmuOptX1;
    LstObj.GetEmuOptX1();
    return CurEmuOptX1;
}

bool WriteConfText(const QString& path, const QString& text)
{
    // The user's file may be spelt "m88.ini": no second spelling may stay beside ours.
    const QFileInfo fi(path);
    DeleteFileAnyCase(fi.path(), fi.fileName());
    return PlatformWriteFile(path, ToSjis(text + QStringLiteral("\r\n")));
}

bool CommandHasPan(const LaunchCommand& cmd)
{
    return cmd.text().toUpper().contains(QLatin1String("FMPAN.D88"));
}

void PasteKeys(const QString& text, const QString& keys)
{
    SetClipText(text);
    if (!keys.isEmpty())
        SendKeys(keys, true);
}

int SendWaitMs()
{
    // A negative setting waits not at all.
    return Cfg.WinSendWait > 0 ? Cfg.WinSendWait : 0;
}

void StageFiles(const QString& dir, const QStringList& names)
{
    for (const QString& name : names)
        ShellCopy(dir + u'/' + name, WorkDir + u'/' + name, 0);
}

void UnstageFiles(const QStringList& names)
{
    for (const QString& name : names)
        ShellDelete(WorkDir + u'/' + name, 0);
}

} // namespace tv
