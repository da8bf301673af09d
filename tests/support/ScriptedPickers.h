#pragma once
// The settings dialogs' file dialog and directory picker answered from a script, with every
// request recorded; installed while it lives. Header-only: only form tests link the pickers.
#include "settings/FilePickers.h"

#include <QStringList>
#include <deque>

namespace tvtest {

class ScriptedPickers : public tv::FilePickers {
public:
    ScriptedPickers() : previous_(tv::InstallPickers(this)) {}
    ~ScriptedPickers() override { tv::InstallPickers(previous_); }
    ScriptedPickers(const ScriptedPickers&) = delete;
    ScriptedPickers& operator=(const ScriptedPickers&) = delete;

    // The next answers; "" (or none left) is a cancel.
    void file(const QString& path) { files_.push_back(path); }
    void dir(const QString& path) { dirs_.push_back(path); }
    // "file:<kind number>" and "dir:<start path>", in order.
    QStringList calls;

    QString SelectFile(tv::SelectKind kind, QWidget*) override
    {
        calls << QStringLiteral("file:%1").arg(int(kind));
        return take(files_);
    }
    bool PickDir(QString& path, QWidget*) override
    {
        calls << QStringLiteral("dir:") + path;
        const QString chosen = take(dirs_);
        if (chosen.isEmpty())
            return false;
        path = chosen;
        return true;
    }

private:
    static QString take(std::deque<QString>& q)
    {
        if (q.empty())
            return {};
        QString s = q.front();
        q.pop_front();
        return s;
    }
    std::deque<QString> files_, dirs_;
    tv::FilePickers* previous_;
};

} // namespace tvtest
