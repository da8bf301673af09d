// The join of pieces of arbitrary content (pieces that an emulator may have rewritten at
// will), with a full disk at a chosen moment: a join that succeeds gives exactly the pieces
// one behind the other and removes them; a join that fails leaves every piece as it was and
// no joined file, so that nothing of the disks is lost.
#include "fuzz/FuzzDirs.h"
#include "launch/D88Uty.h"
#include "platform/FileOps.h"

#include <QFile>
#include <QStringList>

#include <cerrno>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    tvfuzz::FuzzAppDir();
    if (size < 2)
        return 0;
    const int count = data[0] % 5;
    const bool full = data[1] & 1;
    const bool targetThere = (data[1] & 6) == 6;
    data += 2;
    size -= 2;
    // The rest is cut into `count` pieces at the given lengths.
    const QString dir = tv::WorkDir;
    QStringList pieces;
    QList<QByteArray> contents;
    size_t pos = 0;
    for (int i = 0; i < count; ++i) {
        const size_t want = pos < size ? data[pos++] * 17u : 0;
        const size_t take = std::min(want, size - pos);
        const QByteArray piece(reinterpret_cast<const char*>(data + pos), qsizetype(take));
        pos += take;
        const QString name = dir + QStringLiteral("/J#%1_DISK.D88").arg(i + 1, 2, 10, QChar('0'));
        tvfuzz::WriteBytes(name, piece);
        pieces << name;
        contents << piece;
    }
    const QString target = dir + "/J.D88";
    if (targetThere)
        tvfuzz::WriteBytes(target, "there");
    if (full)
        tv::SetFileFaultHook([](tv::FileOpKind kind, const QString&) {
            return kind == tv::FileOpKind::Write ? ENOSPC : 0;
        });

    QStringList list = pieces;
    const bool joined = tv::D88Join(target, list);
    tv::SetFileFaultHook({});
    Check(joined == (count >= 2 && !full && !targetThere));
    if (joined) {
        Check(list.isEmpty());
        Check(tvfuzz::ReadBytes(target) == contents.join(QByteArray()));
        for (const QString& p : pieces)
            Check(!QFile::exists(p));
    } else {
        Check(list == pieces);
        Check(targetThere ? tvfuzz::ReadBytes(target) == "there" : !QFile::exists(target));
        for (int i = 0; i < count; ++i)
            Check(QFile::exists(pieces[i]) && tvfuzz::ReadBytes(pieces[i]) == contents[i]);
    }
    for (const QString& p : pieces)
        QFile::remove(p);
    QFile::remove(target);
    return 0;
}
