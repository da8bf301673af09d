#pragma once
// A dry run of a launch: the selected title's whole launch road, with the emulator's process,
// the keys and the clipboard replaced by recorders. Everything else happens as in a real
// launch (the title is staged in WorkDir, the emulator's configuration is saved and written,
// then restored), so the run shows exactly what a launch does, and then checks that it has
// undone it: WorkDir empty, the emulator's directories and the image byte for byte as before.
//
// The files an emulator gets are made only by its adapter's branch, so the command view of
// the runner dialog takes them from a dry run as well.
#include "data/EmuCode.h"
#include "launch/LaunchCommand.h"
#include "launch/Runner.h"
#include "platform/KeySend.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace tv {

struct DryRunFile {
    QString path;
    QByteArray bytes;
    bool isNew = false; // else changed
};

struct DryRunReport {
    Emu emu = Emu::P88sr;
    // Why the road wasn't taken ("" when it was).
    QString refusal;
    bool titleSelected = false;
    QString title;
    QStringList workDirAtStart; // WorkDir's files when the emulator was started

    // What the road started: the emulator (waited for) and what started beside it.
    bool emulatorStarted = false;
    LaunchCommand specified;
    QString currentDir; // where the emulator's command starts
    std::vector<LaunchCommand> companions;
    QStringList companionLines; // each one's outer command as a shell line ("" without)
    // The outer command of the runner, or why the runner refuses it.
    std::optional<RunnerCommand> outer;
    QString outerRefusal;
    // Clipboard texts and keys in order.
    std::vector<InputRecord> input;
    // Files new or changed in WorkDir and the emulator's directories at the start.
    std::vector<DryRunFile> written;
    // What happened to the main window ("最小化", ...).
    QStringList windowSteps;
    // The message boxes the road showed, answered with their default button (a question to
    // re-pack with "no"): "caption: text".
    QStringList messages;

    // After the road: what was left in WorkDir, and the files of the emulator's directories,
    // the snapshot directory and the image that differ from before (with a word on how).
    QStringList workDirLeft;
    QStringList notRestored;
    // The emulator's configuration where it had none: the launch keeps what it wrote then.
    QStringList keptConfigs;
    int comparedFiles = 0;
};

// The dry run of the selected title (or of the bare emulator without one) on `emu`, with
// `settings` as the emulator's runner for the run.
DryRunReport DryRunSelected(Emu emu, const RunnerSettings& settings);

// "コマンド表示": the specified line, the outer command as a shell line, the working
// directory, the generated runner files, the files written for the emulator, clipboard and keys.
QString CommandViewText(const DryRunReport& r);
// "試験起動": what a real launch would do, step by step, and whether everything was restored.
QString DryRunReportText(const DryRunReport& r);

} // namespace tv
