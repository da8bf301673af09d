#pragma once
// The file dialog and the directory picker that the settings dialogs open from their browse
// buttons. They sit beside the window link rather than in it: they belong to dialogs and take
// a widget as owner, which the core never sees. Tests install their own in one place.
#include "startup/ValidateCfg.h"

#include <QString>

class QWidget;

namespace tv {

class FilePickers {
public:
    virtual ~FilePickers() = default;
    // The open-file dialog: the chosen path, "" on cancel.
    virtual QString SelectFile(SelectKind kind, QWidget* owner) = 0;
    // The directory picker (frmDirSansyo), starting at `path`; false on cancel.
    virtual bool PickDir(QString& path, QWidget* owner) = 0;
};

// The installed pickers, or the real dialogs when none are.
FilePickers& Pickers();
// Installs `pickers` (null: the real dialogs) and returns the ones it replaces.
FilePickers* InstallPickers(FilePickers* pickers);

} // namespace tv
