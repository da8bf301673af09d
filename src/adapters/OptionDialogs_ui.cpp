#include "adapters/OptionDialogs_ui.h"

#include "adapters/j80/frmJ80Op.h"
#include "adapters/m88/frmM88Op.h"
#include "adapters/pc88win/frmPc88WinOp.h"
#include "adapters/x88000/frmX88kOp.h"

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
