#include "launch/Lzh5Encoder.h"

#include "launch/Lzh5Member.h"
#include "util/Sjis.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace tv {

namespace {

struct Source {
    QString path;
    QByteArray sjisName;
    qint64 size = 0;
};

} // namespace

bool WriteLzh5Archive(const QString& archivePath, const QStringList& files,
                      const std::function<void(qint64, qint64)>& progress)
{
    // Everything is checked before the first byte is written, so that a bad list costs nothing.
    QList<Source> sources;
    qint64 total = 0;
    for (const QString& path : files) {
        const QFileInfo info(path);
        if (!info.isFile())
            return false;
        Source s{path, ToSjis(info.fileName()), info.size()};
        // A name that Shift-JIS cannot carry would come back as another name.
        if (s.sjisName.isEmpty() || FromSjis(s.sjisName) != info.fileName())
            return false;
        total += s.size;
        sources.append(s);
    }

    QSaveFile out(archivePath);
    if (!out.open(QIODevice::WriteOnly))
        return false;
    qint64 done = 0;
    if (progress)
        progress(0, total);
    for (const Source& s : sources) {
        QFile in(s.path);
        if (!in.open(QIODevice::ReadOnly))
            return false; // QSaveFile drops its temporary file when not committed
        const QFileInfo info(in);
        const qint64 size = in.size();
        const uint8_t* data = nullptr;
        QByteArray buffer;
        if (size > 0) {
            data = in.map(0, size);
            if (!data) {
                buffer = in.readAll();
                if (buffer.size() != size)
                    return false;
                data = reinterpret_cast<const uint8_t*>(buffer.constData());
            }
        }
        QByteArray member;
        const qint64 before = done;
        std::function<void(qint64)> step;
        if (progress)
            step = [&](qint64 n) { progress(before + n, total); };
        if (!AppendLzhMember(member, s.sjisName, DosDateTime(info.lastModified()), data, size,
                             step))
            return false;
        if (out.write(member) != member.size())
            return false;
        done += size;
    }
    // The end of the archive: a header size of 0.
    if (out.write("\0", 1) != 1)
        return false;
    return out.commit();
}

} // namespace tv
