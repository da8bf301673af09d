#pragma once
// An emulator that the platform can't start at all: no such program, no runner for it, or a
// start the system refuses (a Windows program without Wine, a file without its run bit). The
// launch tells the user which program and why, and takes back everything it did.
#include "launch/LaunchCommand.h"

#include <QString>
#include <stdexcept>

namespace tv {

inline const QString kStartFailedText = QStringLiteral("エミュレータを起動できませんでした。");

// `cause` says why in Japanese; a runner that refuses a command passes its own text.
class EmulatorStartError : public std::runtime_error {
public:
    EmulatorStartError(const QString& program, const QString& cause);
    const QString& program() const { return program_; }
    const QString& cause() const { return cause_; }

private:
    QString program_;
    QString cause_;
};

// Why `cmd` didn't start, read from what stands on disk: a missing program, a directory, a
// file without its run bit, a Windows or DOS program without a runner, or another format.
QString StartFailureCause(const LaunchCommand& cmd);

// The text of the message: what failed, the program, and the cause.
QString StartFailureText(const EmulatorStartError& e);

} // namespace tv
