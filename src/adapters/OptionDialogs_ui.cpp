#include "adapters/OptionDialogs_ui.h"

#include "adapters/em7/frmEm7WinOp.h"
#include "adapters/m88/frmM88Op.h"
#include "adapters/xm7win/frmXm7WinOp.h"

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
