#include "adapters/OptionDialogs_ui.h"

#include "adapters/em7/frmEm7WinOp.h"
#include "adapters/j80/frmJ80Op.h"
#include "adapters/m88/frmM88Op.h"
#include "adapters/p88sr/P88srOption.h"
#include "adapters/p88sr/frmP88srOp.h"
#include "adapters/pc88win/frmPc88WinOp.h"
#include "adapters/quasi88/frmQuasi88Op.h"
#include "adapters/winx1/frmWinX1Op.h"
#include "adapters/x1emu/X1emuSwitches.h"
#include "adapters/x1emu/frmX1emuOp.h"
#include "adapters/x1r/X1rSwitches.h"
#include "adapters/x1r/frmX1rOp.h"
#include "adapters/x88000/frmX88kOp.h"
#include "adapters/xm7win/frmXm7WinOp.h"
#include "adapters/xmil/frmXmilOp.h"
#include "data/Cfg.h"

namespace tv {

std::map<Emu, OptionDialogEntry>& OptionDialogTable()
{
    static std::map<Emu, OptionDialogEntry> table = {
        {Emu::M88,
         {[](int TitleFlag, QWidget* owner) {
              InitM88Op(static_cast<uint8_t>(TitleFlag));
              ShowM88Op(owner);
          },
          nullptr}},
        {Emu::P88sr,
         {[](int TitleFlag, QWidget* owner) {
              InitP88srOp(static_cast<uint8_t>(TitleFlag));
              ShowP88srOp(owner);
          },
          [] { return MakeP88srOption(Cfg.CfgEmuOpt88); }}},
        {Emu::QUASI88,
         {[](int TitleFlag, QWidget* owner) {
              InitQ88Op(static_cast<uint8_t>(TitleFlag));
              ShowQuasi88Op(owner);
          },
          nullptr}},
        {Emu::X1r,
         {[](int TitleFlag, QWidget* owner) {
              InitX1rOp(static_cast<uint8_t>(TitleFlag));
              ShowX1rOp(owner);
          },
          [] { return MakeX1rSwitches(Cfg.CfgEmuOptX1); }}},
        {Emu::Xmil,
         {[](int TitleFlag, QWidget* owner) {
              InitXmilOp(static_cast<uint8_t>(TitleFlag));
              ShowXmilOp(owner);
          },
          nullptr}},
        {Emu::X1emu,
         {[](int TitleFlag, QWidget* owner) {
              InitX1emuOp(static_cast<uint8_t>(TitleFlag));
              ShowX1emuOp(owner);
          },
          [] { return MakeX1emuSwitches(Cfg.CfgEmuOptX1); }}},
        {Emu::WinX1,
         {[](int TitleFlag, QWidget* owner) {
              InitWinX1Op(static_cast<uint8_t>(TitleFlag));
              ShowWinX1Op(owner);
          },
          nullptr}},
        {Emu::Xm7Win,
         {[](int TitleFlag, QWidget* owner) {
              InitXm7WinOp(static_cast<uint8_t>(TitleFlag));
              ShowXm7WinOp(owner);
          },
          nullptr}},
        {Emu::Em7Win,
         {[](int TitleFlag, QWidget* owner) {
              InitEm7WinOp(static_cast<uint8_t>(TitleFlag));
              ShowEm7WinOp(owner);
          },
          nullptr}},
        {Emu::PC88Win,
         {[](int TitleFlag, QWidget* owner) {
              InitPc88WinOp(static_cast<uint8_t>(TitleFlag));
              ShowPc88WinOp(owner);
          },
          nullptr}},
        {Emu::X88k,
         {[](int TitleFlag, QWidget* owner) {
              InitX88kOp(static_cast<uint8_t>(TitleFlag));
              ShowX88kOp(owner);
          },
          nullptr}},
        {Emu::J80,
         {[](int TitleFlag, QWidget* owner) {
              InitJ80Op(static_cast<uint8_t>(TitleFlag));
              ShowJ80Op(owner);
          },
          nullptr}},
    };
    return table;
}

bool OpenOptionDialog(Emu emu, int TitleFlag, QWidget* owner)
{
    auto& table = OptionDialogTable();
    auto it = table.find(emu);
    if (it == table.end() || !it->second.open)
        return false;
    it->second.open(TitleFlag, owner);
    return true;
}

// XM7 for DOS takes no options.
const OptionDialogControls kOptionDialogControls[12] = {
    {Emu::P88sr, "cmdP88srOp", "txtP88srOp"}, {Emu::M88, "cmdM88Op", nullptr},
    {Emu::PC88Win, "cmdPc8Op", nullptr},      {Emu::X88k, "cmdX88Op", nullptr},
    {Emu::QUASI88, "cmdQ88Op", nullptr},      {Emu::J80, "cmdJ80Op", nullptr},
    {Emu::Xm7Win, "cmdXm7WinOp", nullptr},    {Emu::Em7Win, "cmdEm7WinOp", nullptr},
    {Emu::X1r, "cmdX1rOp", "txtX1rOp"},       {Emu::Xmil, "cmdXmilOp", nullptr},
    {Emu::X1emu, "cmdX1emuOp", "txtX1emuOp"}, {Emu::WinX1, "cmdWinX1Op", nullptr},
};

const OptionDialogControls* OptionDialogControlsOf(const QString& button)
{
    for (const auto& c : kOptionDialogControls)
        if (button == QLatin1String(c.button))
            return &c;
    return nullptr;
}

} // namespace tv
