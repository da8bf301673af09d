#include "data/Cfg.h"

#include "data/ByteCodec.h"
#include "util/Globals.h"

#include <QFile>
#include <QSaveFile>

#include <array>

namespace tv {

namespace {

// The one-byte flags from offset 25 to 75, in file order.
template <typename Rec> auto flagBytes(Rec& c)
{
    return std::array{
        &c.P88srUse,      &c.M88Use,      &c.PC88WinUse,      &c.X88kUse,       &c.QUASI88Use,
        &c.J80Use,        &c.Xm7DosUse,   &c.Xm7WinUse,       &c.Em7WinUse,     &c.X1rUse,
        &c.XmilUse,       &c.XmilTUse,    &c.X1emuUse,        &c.WinX1Use,      &c.WinX1IkaUse,
        &c.P88CfgChk,     &c.M88CfgChk,   &c.Pc8CfgChk,       &c.X88CfgChk,     &c.Q88CfgChk,
        &c.J80CfgChk,     &c.Reserved46,  &c.Xm7WinCfgChk,    &c.Em7WinCfgChk,  &c.X1rCfgChk,
        &c.XmilCfgChk,    &c.X1emuCfgChk, &c.WinX1CfgChk,     &c.M88AllScr,     &c.Pc8AllScr,
        &c.X88AllScr,     &c.Q88AllScr,   &c.J80AllScr,       &c.Xm7WinAllScr,  &c.Em7WinAllScr,
        &c.XmilAllScr,    &c.WinX1AllScr, &c.Q88CompatRomUse, &c.ScrAutoRead,   &c.ScrSearchRead,
        &c.WinChangeFlag, &c.WinState,    &c.WinAppearance,   &c.LstSelectSave, &c.TxtIn,
        &c.TxtInConv,     &c.ArcSerch,    &c.TaskIn,          &c.TaskRunForm,   &c.DefScrFlag,
        &c.ColNonMakeFlag};
}

// The one-byte switches from offset 11204 to 11211, in file order.
template <typename Rec> auto switchBytes(Rec& c)
{
    return std::array{&c.DefOpt,   &c.PanUse,  &c.PatUse,       &c.ViewScrCom,
                      &c.ViewGrid, &c.SortKey, &c.DblClickProc, &c.ReArcCheck};
}

// One walk over the record in file order, shared by the writer, the reader and ClearCfg so that
// they can never disagree on the layout.
template <typename Codec, typename Rec> void walk(Codec& io, Rec& c)
{
    io.text(c.CfgVersion, 24);
    io.num(c.LastHardWare);
    for (auto* f : flagBytes(c))
        io.num(*f);
    io.num(c.Reserved76);
    for (auto* a : {&c.ImageDir, &c.SnapDir, &c.ManDir, &c.PatSaveDir})
        for (auto& t : *a)
            io.text(t, 256);
    for (auto* t :
         {&c.P88srDir,     &c.M88Dir,         &c.PC88WinDir,    &c.X88kDir,       &c.QUASI88Dir,
          &c.J80Dir,       &c.Xm7DosDir,      &c.Xm7WinDir,     &c.Em7WinDir,     &c.X1rDir,
          &c.XmilDir,      &c.XmilTDir,       &c.X1emuDir,      &c.WinX1Dir,      &c.P88SaveDir,
          &c.M88SaveDir,   &c.QUASI88SaveDir, &c.Xm7DosSaveDir, &c.Xm7WinSaveDir, &c.XmilSaveDir,
          &c.WinX1SaveDir, &c.J80RomsFile,    &c.J80Rom4File,   &c.J80FontFile,   &c.J80DiskFile,
          &c.J80CrtFile,   &c.J80KeyFile,     &c.J80PenDir,     &c.FmPanFile,     &c.JavaVMPath,
          &c.DefScrPath})
        io.text(*t, 256);
    for (auto* t : {&c.J80RomsAddress, &c.J80Rom4Address, &c.J80FontAddress, &c.J80DiskAddress})
        io.text(*t, 8);
    io.text(c.FreeColName1, 20);
    io.text(c.FreeColName2, 20);
    io.num(c.WinSendWait);
    io.num(c.ColWidth);
    for (auto* f : {&c.WinWidth, &c.WinHeight, &c.WinLeft, &c.WinTop})
        io.num(*f);
    io.num(c.LstSelectPos);
    for (auto* f : switchBytes(c))
        io.num(*f);
    for (auto& row : c.FilterOrder)
        io.num(row);
    WalkEmuOpt88(io, c.CfgEmuOpt88);
    WalkEmuOptFM(io, c.CfgEmuOptFM);
    WalkEmuOptX1(io, c.CfgEmuOptX1);
}

QString cfgPath()
{
    return AppDir + QStringLiteral("/") + kCfgFileName;
}

QString orAppDir(const QString& stored)
{
    QString t = stored.trimmed();
    return t.isEmpty() ? AppDir : t;
}

} // namespace

QByteArray EncodeCfg(const CfgRecord& c)
{
    QByteArray out;
    out.reserve(kCfgSize);
    ByteWriter w(out);
    FieldWriter io{w};
    walk(io, c);
    return out;
}

void DecodeCfg(const QByteArray& bytes, CfgRecord& c)
{
    ByteReader r(bytes);
    FieldReader io{r};
    walk(io, c);
}

void ClearCfg(CfgRecord& c)
{
    // Every text field, those inside the option blocks too, so that a short file leaves no
    // stale text behind.
    FieldBlanker io;
    walk(io, c);
}

void SetDefaultCfg(CfgRecord& c)
{
    ClearCfg(c);
    c.CfgVersion = kCfgVersionText;
    c.LastHardWare = 0;
    for (auto* f : flagBytes(c))
        *f = 0;
    for (auto* f : switchBytes(c))
        *f = 0;
    c.Reserved76 = {0, 0};
    c.FreeColName1 = QStringLiteral("Free Col1");
    c.FreeColName2 = QStringLiteral("Free Col2");
    c.WinSendWait = 750;
    c.ColWidth = {4499.71f, 1349.85f, 2300.03f, 1349.85f, 1349.85f, 1349.85f};
    c.WinWidth = c.WinHeight = c.WinLeft = c.WinTop = 0;
    c.LstSelectPos = 0;
    for (auto& row : c.FilterOrder)
        row.fill(0);
    // Each column lists its rows of the extension table in natural order.
    const int rows[6] = {5, 6, 5, 4, 4, 12};
    for (int col = 0; col < 6; ++col)
        for (int r = 0; r < rows[col]; ++r)
            c.FilterOrder[r][col] = static_cast<uint8_t>(r + 1);
    SetDefaultEmuOpt88(c.CfgEmuOpt88);
    SetDefaultEmuOptFM(c.CfgEmuOptFM);
    SetDefaultEmuOptX1(c.CfgEmuOptX1);
}

bool ReadCfg(CfgRecord& c)
{
    QFile f(cfgPath());
    if (!f.open(QIODevice::ReadOnly))
        return false;
    QByteArray bytes = f.read(kCfgSize);
    if (f.error() != QFileDevice::NoError)
        return false;
    DecodeCfg(bytes, c);
    return true;
}

bool SaveCfg(const CfgRecord& c)
{
    // Through a temporary file and a rename, so that a crash never leaves half a record.
    QSaveFile f(cfgPath());
    if (!f.open(QIODevice::WriteOnly))
        return false;
    QByteArray bytes = EncodeCfg(c);
    if (f.write(bytes) != bytes.size())
        return false;
    return f.commit();
}

void ResolveCfgDirs(const CfgRecord& c)
{
    for (int i = 0; i < 3; ++i) {
        ImageDir[i] = orAppDir(c.ImageDir[i]);
        SnapDir[i] = orAppDir(c.SnapDir[i]);
        ManDir[i] = orAppDir(c.ManDir[i]);
        PatSaveDir[i] = orAppDir(c.PatSaveDir[i]);
    }
    P88SaveDir = orAppDir(c.P88SaveDir);
    M88SaveDir = orAppDir(c.M88SaveDir);
    QUASI88SaveDir = orAppDir(c.QUASI88SaveDir);
    Xm7DosSaveDir = orAppDir(c.Xm7DosSaveDir);
    Xm7WinSaveDir = orAppDir(c.Xm7WinSaveDir);
    XmilSaveDir = orAppDir(c.XmilSaveDir);
    WinX1SaveDir = orAppDir(c.WinX1SaveDir);
}

} // namespace tv
