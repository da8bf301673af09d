#pragma once
// A fresh program directory for the real program with a catalogue of invented Japanese titles:
// a copy of the built program, a valid TORVANE.CFG, a TORVANE.LST built byte by byte, a
// screenshot in SnapDir, emulator directories with their programs and P88SR save states.
// The configuration opens family 0 with the picture pane on and the second record selected.
#include "data/Cfg.h"

#include <QByteArray>
#include <QColor>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tvtest {

class CatalogueProgram {
public:
    // The colour that fills the middle of the screenshot of the selected title.
    static QColor shotColour() { return QColor(0x18, 0xb4, 0x6e); }
    // Seek pointer of the selected record (record 2 of family 0).
    static int selectedSeek() { return 25 + 2284; }

    // Builds the directory; false with `why` set on failure.
    bool setUp(QString* why);

    QString root() const { return root_.path(); }
    QString app() const { return root_.path() + QStringLiteral("/app"); }
    QString tmp() const { return root_.path() + QStringLiteral("/tmp"); }
    QString temp() const { return root_.path() + QStringLiteral("/temp"); }
    QString program() const { return app() + QStringLiteral("/torvane"); }

    const QByteArray& lstBytes() const { return lst_; }
    const QByteArray& cfgBytes() const { return cfg_; }
    const tv::CfgRecord& cfg() const { return cfgRecord_; }
    // The titles in file order.
    QStringList titles() const { return titles_; }

    // Environment for the program: TMP and TEMP of this directory and the given platform.
    QProcessEnvironment environment(const QString& platform) const;
    // Starts the program; true once it runs.
    bool start(QProcess& p, const QString& platform) const;
    // Waits until the start-up has made TORVBOOT and the one-second splash is over.
    bool waitUntilUp(const QProcess& p, int timeoutMs) const;
    // Ends the program that start() began.
    static void stop(QProcess& p);

private:
    QTemporaryDir root_;
    QByteArray lst_, cfg_;
    tv::CfgRecord cfgRecord_;
    QStringList titles_;
};

} // namespace tvtest
