#include "launch/ManualFile.h"

#include "data/clsLst.h"
#include "launch/Archive.h"
#include "platform/MsgBox.h"
#include "platform/Shell.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QFileInfo>
#include <QUrl>

namespace tv {

namespace {

// The path itself, or the name in the family's image directory; "" when neither is a file.
QString existingPathOrInImageDir(const QString& name, int family)
{
    if (name.isEmpty())
        return {};
    if (QFileInfo(name).isFile())
        return name;
    if (family < 0 || family > 2 || ImageDir[size_t(family)].isEmpty())
        return {};
    const QString inDir = ImageDir[size_t(family)] + u'/' + name;
    return QFileInfo(inDir).isFile() ? inDir : QString();
}

} // namespace

bool ManualInArchive(const clsLst& item)
{
    return item.GetMeltManFlag() == 1 && IsArcExt(GetFileExt(item.GetJituFile()));
}

QString ChooseManualFile(const clsLst& item, int family, QObject* owner)
{
    const QString man = item.GetManFile();
    if (man.isEmpty())
        return {};
    if (!ManualInArchive(item))
        return existingPathOrInImageDir(man, family);

    const QString archive = existingPathOrInImageDir(item.GetJituFile(), family);
    if (archive.isEmpty() || PeekDir.isEmpty())
        return {};
    if (ArcMelt(owner, archive, PeekDir, QString(), kArcTrue, kArcTrue) != 0)
        return {};
    // The member is known by its base and extension; archives keep names in any case.
    const QString ext = QFileInfo(man).suffix();
    const QString member = ext.isEmpty() ? GetFileBase(man) : GetFileBase(man) + u'.' + ext;
    return FindFileNoCase(PeekDir, member);
}

bool OpenItemManual(const clsLst& item, int family, QObject* owner)
{
    const QString path = ChooseManualFile(item, family, owner);
    if (path.isEmpty()) {
        MsgBox(kManualBadText, MbExclamation);
        return false;
    }
    if (!OpenUrl(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()))) {
        MsgBox(kManualOpenErrorText, MbExclamation);
        return false;
    }
    return true;
}

} // namespace tv
