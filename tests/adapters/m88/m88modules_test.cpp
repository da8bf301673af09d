#include "adapters/m88/M88Modules.h"
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "util/Globals.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;

namespace {

class M88ModulesTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root_.isValid());
        QDir r(root_.path());
        for (const char* d : {"tmp", "m88", "save"})
            ASSERT_TRUE(r.mkpath(QString::fromLatin1(d)));
        saved_ = {EnvTmpDir, EnvTempDir, SystemDir, WindowsDir, M88SaveDir, Cfg.M88Dir};
        savedCfg_ = Cfg.CfgEmuOpt88;
        savedCur_ = CurEmuOpt88;
        LstObj.GetEmuOpt88();
        savedRecord_ = CurEmuOpt88;
        EnvTmpDir = EnvTempDir = r.filePath(QStringLiteral("tmp"));
        SystemDir = QStringLiteral("/usr");
        WindowsDir = QStringLiteral("/etc");
        emu_ = r.filePath(QStringLiteral("m88"));
        save_ = r.filePath(QStringLiteral("save"));
        M88SaveDir = save_;
        Cfg.M88Dir = emu_ + QStringLiteral("   "); // blank-filled as in the record
        Cfg.CfgEmuOpt88 = EmuOpt88{};
        CurEmuOpt88 = EmuOpt88{};
        LstObj.SetEmuOpt88(); // the title's record in the catalogue's buffer
    }
    void TearDown() override
    {
        EnvTmpDir = saved_[0];
        EnvTempDir = saved_[1];
        SystemDir = saved_[2];
        WindowsDir = saved_[3];
        M88SaveDir = saved_[4];
        Cfg.M88Dir = saved_[5];
        Cfg.CfgEmuOpt88 = savedCfg_;
        CurEmuOpt88 = savedRecord_;
        LstObj.SetEmuOpt88();
        CurEmuOpt88 = savedCur_;
    }
    void Put(const QString& dir, const QString& name)
    {
        QFile f(dir + QLatin1Char('/') + name);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(name.toLatin1() + " contents");
    }
    QString Read(const QString& dir, const QString& name)
    {
        QFile f(dir + QLatin1Char('/') + name);
        return f.open(QIODevice::ReadOnly) ? QString::fromLatin1(f.readAll()) : QString();
    }
    QStringList Listing(const QString& dir) { return QDir(dir).entryList(QDir::Files, QDir::Name); }

    QTemporaryDir root_;
    std::array<QString, 6> saved_;
    EmuOpt88 savedCfg_, savedCur_, savedRecord_;
    QString emu_, save_;
};

} // namespace

TEST_F(M88ModulesTest, UnwantedModulesAreHiddenAndComeBack)
{
    for (const char* n :
         {"diskdrv.m88", "e1.rom", "E8.ROM", "JS.m88", "JS.ini", "FM98.m88", "M88.EXE"})
        Put(emu_, QString::fromLatin1(n));
    const QStringList before = Listing(emu_);
    ModuleState st;
    st.fill(9);
    HideM88Modules(st, CurEmuOpt88);
    EXPECT_EQ(st, (ModuleState{222, 0, 22, 0, 0, 0, 0, 2}));
    EXPECT_EQ(Listing(emu_), (QStringList{"E8._ROM", "FM98._m88", "JS._ini", "JS._m88", "M88.EXE",
                                          "diskdrv._m88", "e1._rom"}));
    EXPECT_EQ(Read(emu_, QStringLiteral("JS._ini")), QStringLiteral("JS.ini contents"));
    RestoreM88Modules(st);
    EXPECT_EQ(st, ModuleState{});
    EXPECT_EQ(Listing(emu_), before);
    EXPECT_EQ(Read(emu_, QStringLiteral("E8.ROM")), QStringLiteral("E8.ROM contents"));
}

TEST_F(M88ModulesTest, WantedModulesStayOrAreCopiedInFromTheSaveDirectory)
{
    CurEmuOpt88.M88_5Op[2] = 1; // JS: JS.m88 here, JS.ini only in the save directory
    CurEmuOpt88.M88_5Op[4] = 1; // PcgSound: here
    CurEmuOpt88.M88_5Op[6] = 1; // SeekSnd: only in the save directory
    Put(emu_, QStringLiteral("JS.m88"));
    Put(save_, QStringLiteral("JS.ini"));
    Put(emu_, QStringLiteral("PcgSound.m88"));
    Put(save_, QStringLiteral("SeekSnd.m88"));
    Put(save_, QStringLiteral("cdif.m88")); // unwanted and not here: nothing happens
    const QStringList before = Listing(emu_);
    LstObj.SetEmuOpt88();
    ModuleState st;
    HideM88Modules(st, 0);
    EXPECT_EQ(st, (ModuleState{0, 0, 10, 0, 0, 0, 1, 0}));
    EXPECT_EQ(Listing(emu_), (QStringList{"JS.ini", "JS.m88", "PcgSound.m88", "SeekSnd.m88"}));
    EXPECT_EQ(Read(emu_, QStringLiteral("SeekSnd.m88")), QStringLiteral("SeekSnd.m88 contents"));
    RestoreM88Modules(st);
    EXPECT_EQ(Listing(emu_), before);
    EXPECT_EQ(Listing(save_), (QStringList{"JS.ini", "SeekSnd.m88", "cdif.m88"}));
}

TEST_F(M88ModulesTest, WantedModuleWithAMissingFileIsHiddenWhole)
{
    CurEmuOpt88.M88_5Op[0] = 1;
    Put(emu_, QStringLiteral("diskdrv.m88"));
    Put(save_, QStringLiteral("e1.rom")); // E8.ROM is nowhere
    LstObj.SetEmuOpt88();
    ModuleState st;
    HideM88Modules(st, 0);
    EXPECT_EQ(st[0], 2); // diskdrv.m88 hidden; e1.rom not copied in
    EXPECT_EQ(Listing(emu_), QStringList{"diskdrv._m88"});
    RestoreM88Modules(st);
    EXPECT_EQ(Listing(emu_), QStringList{"diskdrv.m88"});
}

TEST_F(M88ModulesTest, MixedModuleCopiesInWhatIsMissing)
{
    Cfg.CfgEmuOpt88.M88_5Op[0] = 1;
    Put(emu_, QStringLiteral("diskdrv.m88"));
    Put(save_, QStringLiteral("e1.rom"));
    Put(emu_, QStringLiteral("E8.ROM"));
    ModuleState st;
    HideM88Modules(st, 1); // the defaults' flags
    EXPECT_EQ(st[0], 10);
    EXPECT_EQ(Listing(emu_), (QStringList{"E8.ROM", "diskdrv.m88", "e1.rom"}));
    RestoreM88Modules(st);
    EXPECT_EQ(Listing(emu_), (QStringList{"E8.ROM", "diskdrv.m88"}));
}

TEST_F(M88ModulesTest, DefOptChoosesTheBlock)
{
    Put(emu_, QStringLiteral("cdif.m88"));
    Cfg.CfgEmuOpt88.M88_5Op[1] = 1;
    ModuleState st;
    HideM88Modules(st, 0); // the title's block doesn't want it
    EXPECT_EQ(st[1], 2);
    RestoreM88Modules(st);
    HideM88Modules(st, 1);
    EXPECT_EQ(st[1], 0);
    EXPECT_EQ(Listing(emu_), QStringList{"cdif.m88"});
}

TEST_F(M88ModulesTest, TheTitlesBlockIsFetchedFromTheCatalogueRecord)
{
    Put(emu_, QStringLiteral("cdif.m88"));
    CurEmuOpt88 = EmuOpt88{};
    CurEmuOpt88.M88_5Op[1] = 1; // the record wants cdif
    LstObj.SetEmuOpt88();
    CurEmuOpt88 = EmuOpt88{}; // a working copy that no longer matches the record
    ModuleState st;
    HideM88Modules(st, 0);
    EXPECT_EQ(st[1], 0);
    EXPECT_EQ(CurEmuOpt88.M88_5Op[1], 1);
    EXPECT_EQ(Listing(emu_), QStringList{"cdif.m88"});
}

TEST_F(M88ModulesTest, NamesAreFoundWhateverTheirCase)
{
    // The modules come from a case-blind file system: an unwanted module in capitals is hidden,
    // a wanted one in other spellings counts as present.
    Put(emu_, QStringLiteral("DISKDRV.M88"));
    Put(emu_, QStringLiteral("js.M88"));
    Put(save_, QStringLiteral("js.INI"));
    CurEmuOpt88.M88_5Op[2] = 1;
    LstObj.SetEmuOpt88();
    ModuleState st;
    HideM88Modules(st, 0);
    EXPECT_EQ(st, (ModuleState{2, 0, 10, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Listing(emu_), (QStringList{"JS.ini", "diskdrv._m88", "js.M88"}));
    RestoreM88Modules(st);
    EXPECT_EQ(Listing(emu_), (QStringList{"diskdrv.m88", "js.M88"}));
    EXPECT_EQ(Listing(save_), QStringList{"js.INI"});
}

TEST_F(M88ModulesTest, RestoreOnlyActsOnWhatIsThere)
{
    // A state from a launch whose files have gone meanwhile: nothing to do, no harm.
    ModuleState st{222, 1, 21, 0, 0, 0, 0, 0};
    RestoreM88Modules(st);
    EXPECT_EQ(st, ModuleState{});
    EXPECT_TRUE(Listing(emu_).isEmpty());
    // File 0 copied in, file 1 hidden.
    Put(emu_, QStringLiteral("JS.m88"));
    Put(emu_, QStringLiteral("JS._ini"));
    st = {0, 0, 21, 0, 0, 0, 0, 0};
    RestoreM88Modules(st);
    EXPECT_EQ(Listing(emu_), QStringList{"JS.ini"});
}

TEST_F(M88ModulesTest, ModuleTable)
{
    EXPECT_STREQ(M88Modules[0][2].visible, "E8.ROM");
    EXPECT_STREQ(M88Modules[0][2].hidden, "E8._ROM");
    EXPECT_STREQ(M88Modules[2][1].hidden, "JS._ini");
    EXPECT_EQ(M88Modules[7][1].visible, nullptr);
    EXPECT_STREQ(M88ModuleCaptions[0], "diskdrv88+80");
    EXPECT_STREQ(M88ModuleCaptions[7], "FM98");
}
