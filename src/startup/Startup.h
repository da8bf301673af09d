#pragma once
// Start-up and shut-down of the program: the steps between the process start and the moment
// the main window takes input, the configuration gate, and what is stored at exit. The windows
// are reached through the window link (launch/MainWindowLink.h), so the whole sequence runs
// headless in tests.
#include "launch/MainWindowLink.h"
#include "platform/Platform.h"
#include "util/SubFunction.h"

#include <QString>
#include <array>
#include <functional>
#include <memory>

namespace tv {

// Texts shown by the start-up, exactly as the user sees them.
namespace StartupText {
inline const QString LoadError = QStringLiteral("APP Load Error");
inline const QString Unexpected = QStringLiteral("予期せぬエラーで起動できません");
inline const QString CheckInstance = QStringLiteral("同時起動チェック．．．");
inline const QString TwoInstances =
    QStringLiteral("同一ディレクトリ内のTORVANEは複数立ち上げできません");
inline const QString CheckEnv = QStringLiteral("環境変数 および 必要dllを調査．．．");
inline const QString NoTmp = QStringLiteral("Windowsの環境変数であるTMPがありません");
inline const QString NoTemp = QStringLiteral("Windowsの環境変数であるTEMPがありません");
inline const QString NoWindowsDir = QStringLiteral("Windowsディレクトリがありません");
inline const QString NoSystemDir = QStringLiteral("SYSTEMディレクトリがありません");
inline const QString SetVars = QStringLiteral("内部変数の設定．．．");
inline const QString UnsafeAppDir =
    QStringLiteral("TORVANE は Windows・SYSTEM・TEMP・TMPディレクトリの配下\n"
                   "または ネットワークからでは起動できません");
inline const QString BootDirFailed = QStringLiteral("解凍・圧縮ディレクトリの作成に失敗しました");
inline const QString ReadingCfg = QStringLiteral("TORVANE.CFGを読込中．．．");
inline const QString ReadingLst = QStringLiteral("TORVANE.Lxxを読込中．．．");
inline const QString LstBadLine2 = QStringLiteral("RECASTnnでコンバートして下さい。");
inline const QString Resident = QStringLiteral("TORVANE を常駐します．．．");
inline const QString Starting = QStringLiteral("TORVANE を開始します．．．");
inline const QString StartFailed = QStringLiteral("起動に失敗しました．．．");
inline const QString BootDirExists = QStringLiteral("TORVBOOTディレクトリが存在します\n"
                                                    "ファイルが残っている可能性がありますが、\n"
                                                    "削除してよろしいですか？");
inline const QString NoCfgCaption = QStringLiteral("TORVANE.CFG がありません");
inline const QString NoCfgText = QStringLiteral("設定を登録してください");
inline const QString CfgVersionDiffers = QStringLiteral("TORVANE.CFGのVersionが違います\n"
                                                        "CFGファイルを新しく作り直しますか？");
inline const QString CfgVersionCaption = QStringLiteral("TORVANE.CFG のVerが違います");
inline const QString CfgUpdateHint = QStringLiteral("RECASTnn.EXEでCFGをアップデートして下さい");
} // namespace StartupText

// Catalogue files in the order the start-up checks them, by family.
inline const std::array<QString, 3> kLstFileNames = {
    QStringLiteral("TORVANE.LST"), QStringLiteral("TORVANE.LFM"), QStringLiteral("TORVANE.LX1")};

// The surroundings of one start. Production takes the defaults; tests give their own
// directories and skip the waits.
struct StartupEnv {
    QString programDir;     // empty: the running executable's directory
    QString executablePath; // empty: the running executable; keys the instance lock
    std::function<void(int)> sleep = [](int ms) { SleepMs(ms); };
    std::function<void()> yield = [] { DoEvents(); };
};

class Startup {
public:
    explicit Startup(StartupEnv env = {});

    // Form_Load of frmMain: the whole start-up. True when the main window has been handed
    // over; false when the start was refused and the process is to end.
    bool FormLoad();
    // Form_Unload of frmMain.
    void FormUnload();

    bool MakeBootDir();
    bool MakeTempBootDir();
    void CheckCfg();
    void StartFail();

    // The previous-instance lock stays held while this object lives.
    bool HoldsInstanceLock() const { return lock_ != nullptr; }

private:
    bool Run();
    void Refuse(const QString& text);
    void Yield() { env_.yield(); }
    void Sleep(int ms) { env_.sleep(ms); }

    StartupEnv env_;
    bool trayOn_ = false; // TaskIn in force for this run
    std::unique_ptr<InstanceLock> lock_;
};

// The seek pointer behind the key's first character ("K25" -> 25), 0 when there is none.
int32_t SeekPointerOfKey(const QString& key);

} // namespace tv
