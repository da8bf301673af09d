#pragma once
// What differs between the emulators in a launch, behind one interface whose hooks are the
// emulator's own steps of the launch frame. The frame does the steps every emulator shares,
// driven by the emulator's row of the registry, and calls these hooks in its order.
#include "data/Cfg.h"
#include "data/EmuRegistry.h"
#include "launch/LaunchCommand.h"

#include <QString>
#include <QStringList>
#include <any>
#include <cstdint>
#include <memory>

namespace tv {

// The state of one launch as the frame hands it to the hooks.
struct LaunchState {
    explicit LaunchState(const EmuRow& r) : row(r) {}
    const EmuRow& row;
    uint8_t HardWare = 0;
    QString StartFile, SecondFile;
    uint8_t DefOpt = 0;
    // The first image as the emulator reaches it, its stem and upper-case extension.
    QString Image, ImageStem, ImageExt;
    QString Second;
    QString PanArg; // "FMPAN.D88 " or ""
    uint8_t TuneUse = 0;
    // The images of the branch: Image and Second, or the first two pieces of a split disk.
    QString First, SecondOfBranch;
    // The emulator's directory for this launch and its program found there.
    QString Dir, Exe;
    // What an adapter keeps between its steps before and after the run.
    std::any adapterState;
};

// What the branch hands to ExecEmulator.
struct EmuBranch {
    LaunchCommand cmd;
    QString paste1, paste2;
    uint8_t altFlag = 0;
};

class EmuAdapter {
public:
    explicit EmuAdapter(Emu emu) : row_(RowOf(emu)) {}
    virtual ~EmuAdapter() = default;
    EmuAdapter(const EmuAdapter&) = delete;
    EmuAdapter& operator=(const EmuAdapter&) = delete;

    const EmuRow& row() const { return row_; }

    // Whether a title can run as the configuration stands; when it can't, `why` gets the text
    // that tells the user (the button's tooltip). Not ready, for want of its switches.
    virtual bool ready(const CfgRecord& cfg, QString* why) const;

    // Module staging before the run, and the choice of TuneUse.
    virtual void stageBefore(LaunchState&) {}
    // Save states and modules into place, before the configuration is backed up.
    virtual void saveStatesIn(LaunchState&) {}
    // The command line, pastes and AltFlag, with the configuration written or corrected;
    // false leaves the launch without a run.
    virtual bool branch(LaunchState&, EmuBranch&) { return false; }
    // Files that the branch staged for the run go away (after the join of a split disk).
    virtual void stageAfter(LaunchState&) {}
    // Save states out and modules back.
    virtual void saveStatesOut(LaunchState&) {}
    // Files the emulator leaves in WorkDir that are not the title's.
    virtual QStringList workLeftovers() const { return {}; }

    // The PCI sound-card driver files are wanted for this launch (rows with pciDebug).
    virtual bool pciDebugWanted(uint8_t /*DefOpt*/) const { return false; }

    // While the emulator runs: the image names through its file dialogs, what starts beside
    // it, and its full-screen hot key ("" none).
    virtual void sendImageNames(const LaunchCommand&, const QString& /*Paste1*/,
                                const QString& /*Paste2*/) const
    {
    }
    virtual void startCompanions(uint8_t /*AltFlag*/) const {}
    virtual QString fullScreenKeys(uint8_t /*AltFlag*/) const { return {}; }

    // The bare emulator, started in its directory: the program name without path by default.
    virtual LaunchCommand bareCommand() const;

private:
    const EmuRow& row_;
};

// The tooltip of a road whose adapter hasn't landed: the default adapter is never ready.
extern const QString kNeedsSwitchesText;

// Registers the adapter of an emulator, replacing one that stood.
void RegisterAdapter(Emu emu, std::unique_ptr<EmuAdapter> adapter);
// The adapter of a code: the registered one, else a default that is never ready. Null for a
// code outside the table.
EmuAdapter* AdapterOf(int code);

// Helpers the adapters share.
// The option block that DefOpt chooses: the defaults when it is 1, else the current title's,
// fetched from the catalogue's record.
EmuOpt88 ChosenOpt88(uint8_t DefOpt);
EmuOptFM ChosenOptFM(uint8_t DefOpt);
EmuOptX1 ChosenOptX1(uint8_t DefOpt);
// Creates `path` anew, no second spelling of its name beside it, with the whole text and one
// line end behind it, in Shift-JIS.
bool WriteConfText(const QString& path, const QString& text);
// The command line carries the FMPAN disk.
bool CommandHasPan(const LaunchCommand& cmd);
// Puts `text` on the clipboard and sends `keys` to the emulator, waiting for them.
void PasteKeys(const QString& text, const QString& keys);
// The delay the user set before keys that must let the emulator finish its start.
int SendWaitMs();
// Copies the files of a directory into WorkDir, in the order given, and deletes them again.
void StageFiles(const QString& dir, const QStringList& names);
void UnstageFiles(const QStringList& names);

} // namespace tv
