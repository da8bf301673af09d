#pragma once
// The runner check's outside calls, scripted: each "program arg arg" has its answer, every
// call is recorded, and the files that exist are named. Installed while it lives.
#include "launch/RunnerCheck.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

namespace tvtest {

class ScriptedProbe : public tv::RunnerProbe {
public:
    ScriptedProbe() : previous_(tv::InstallProbe(this)) {}
    ~ScriptedProbe() override { tv::InstallProbe(previous_); }
    ScriptedProbe(const ScriptedProbe&) = delete;
    ScriptedProbe& operator=(const ScriptedProbe&) = delete;

    // The answer to a command line; a command without one isn't there (not started).
    void answer(const QString& commandLine, const QString& output, int exitCode = 0)
    {
        Result r;
        r.started = true;
        r.exitCode = exitCode;
        r.output = output;
        answers_[commandLine] = r;
    }
    void hang(const QString& commandLine)
    {
        Result r;
        r.started = true;
        r.timedOut = true;
        answers_[commandLine] = r;
    }
    void file(const QString& path) { files_.insert(path); }

    Result run(const QString& program, const QStringList& args, const QStringList& env,
               int /*timeoutMs*/) override
    {
        const QString line = (QStringList{program} + args).join(u' ');
        calls << line;
        envs << env;
        return answers_.value(line);
    }
    bool exists(const QString& path) override
    {
        asked << path;
        return files_.contains(path);
    }

    QStringList calls;
    QList<QStringList> envs;
    QStringList asked;

private:
    tv::RunnerProbe* previous_;
    QMap<QString, Result> answers_;
    QSet<QString> files_;
};

} // namespace tvtest
