#pragma once
// The road of one launch, from the press of an emulator button to the return to the list:
// stage 1 puts the title into WorkDir, stage 2 is the frame around one emulator run, stage 3
// (CheckRepack) sends back what changed. With nothing selected the bare emulator starts.
#include "data/Cfg.h"
#include "launch/LaunchCommand.h"
#include "launch/Repack.h"

#include <QString>
#include <cstdint>
#include <functional>

namespace tv {

inline const QString kEmuRunErrorCaption = QStringLiteral("Emu実行エラー");
inline const QString kPrepareErrorText =
    QStringLiteral("実行ファイルが不正です。\r\n\r\n解凍エラー・もしくはコピーエラー");
inline const QString kSplitErrorText = QStringLiteral("D88の分割に失敗しました");
inline const QString kJoinErrorText = QStringLiteral("D88の結合に失敗しました");
inline const QString kConfWriteErrorText =
    QStringLiteral("エミュレータの設定ファイルを書き込めなかったため、起動を中止しました。");
// %1 the emulator's configuration file, %2 its backup name.
inline const QString kBackupErrorText =
    QStringLiteral("%1 を %2 に保存できなかったため、起動を中止しました。");
inline const QString kLaunchStatusText = QStringLiteral("Emulator起動中．．");
inline const QString kFmPanFile = QStringLiteral("FMPAN.D88");

// One of the thirteen codes of the table.
bool IsLaunchCode(int EmuCode);
// The family of a code, or -1.
int LaunchFamily(int EmuCode);
// The executable's bare name and the emulator's directory (trimmed) in the configuration.
QString EmuExeName(int EmuCode, const CfgRecord& cfg = Cfg);
QString EmuDirOf(int EmuCode, const CfgRecord& cfg = Cfg, uint8_t TuneUse = 0);

// Whether the launch of a title on this emulator can run as the configuration stands; when
// it can't, `why` gets the text that tells the user (the button's tooltip). Its adapter says.
bool LaunchRoadReady(int EmuCode, const CfgRecord& cfg = Cfg, QString* why = nullptr);

// The press of cmdEmuRun(EmuCode). Failures end in the messages of the launch or silently.
void RunSelectedItem(int16_t EmuCode);

// Stage 1. `JituFile` may be rewritten to where the file was found in ImageDir.
bool PrepareWorkDir(uint8_t HardWare, int16_t EmuCode, uint8_t ArcCheckFlag, QString& JituFile,
                    FileList& fileList);

// The name under which the emulator reaches a file of WorkDir, or "".
QString GetWorkImageName(int16_t EmuCode, const QString& FileName);

// Stage 2: true only when the emulator ran and the frame came to its end.
bool RunEmulatorItem(uint8_t HardWare, int16_t EmuCode, const QString& StartFile,
                     const QString& SecondFile, uint8_t DefOpt);

// The emulator alone, without a title, started in its directory; returns at once.
void RunEmulatorOnly(uint8_t HardWare, int16_t EmuCode);
// Its command: the bare executable name (program empty for an invalid code or family).
LaunchCommand EmulatorOnlyCommand(uint8_t HardWare, int16_t EmuCode);

// Time spent in the launch stages, for the benchmark (the prescribed sleeps and the wait
// for the emulator are left out).
struct LaunchTimings {
    qint64 stage1Ns = 0;
    qint64 stage2StagingNs = 0; // the frame but the run itself
    qint64 stage3Ns = 0;
};
inline LaunchTimings lastLaunchTimings;

} // namespace tv
