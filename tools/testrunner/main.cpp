// The test runner: one program installed under the names "wine", "winepath", "wineboot",
// "dosbox" and "java", which records how it was started and then hands over to the program it
// was asked to run as the real runner would, by exec, so the process id stays the same.
//
// Log file: the path in TESTRUNNER_LOG, else "testrunner.log" beside the executable. Lines
// are appended, UTF-8, fields separated by tabs:
//   run <name> <pid>         the name it was started under and its process id
//   arg <n> <text>           one line per argument (0 is the program)
//   cwd <path>
//   env <NAME=value>         one line per environment entry, sorted
//   conf <line>              as "dosbox": each line of the configuration given by -conf
//   exec <path>              the program it hands over to
//   fail <why>               when it can't
//
// As "wine": runs the first argument that is no option with the arguments behind it.
// As "winepath": "-w PATH" prints Wine's form of PATH, "-u PATH" the native form.
// As "wineboot": makes $WINEPREFIX with a "system.reg" in it (fails when TESTRUNNER_FAIL is
// "wineboot").
// As "dosbox": reads the [autoexec] of the -conf file (mount, drive change, the program line,
// exit), changes to the current drive's directory and runs the program of the drive it names
// with the words of the line's tail. Links are resolved, as a DOS sees only the files.
// As "java": skips the virtual machine's arguments before "-jar" and runs TESTRUNNER_JAVA with
// "-jar" and everything behind it.
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace fs = std::filesystem;

namespace {

std::string g_log;

void Log(const std::string& kind, const std::string& text)
{
    std::ofstream f(g_log, std::ios::app | std::ios::binary);
    f << kind << '\t' << text << '\n';
}

int Fail(const std::string& why)
{
    Log("fail", why);
    std::fprintf(stderr, "testrunner: %s\n", why.c_str());
    return 2;
}

// Hands over to `program` with `args` (args[0] included); returns only on failure.
int Exec(const std::string& program, const std::vector<std::string>& args)
{
    Log("exec", program);
    std::vector<char*> argv;
    for (const std::string& a : args)
        argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    execv(program.c_str(), argv.data());
    return Fail("exec " + program + ": " + std::strerror(errno));
}

std::string Lower(std::string s)
{
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
    return s;
}

int Wine(const std::vector<std::string>& args)
{
    size_t i = 1;
    while (i < args.size() && !args[i].empty() && args[i][0] == '-')
        ++i;
    if (i >= args.size())
        return Fail("no program");
    return Exec(args[i], std::vector<std::string>(args.begin() + long(i), args.end()));
}

int Winepath(const std::vector<std::string>& args)
{
    if (args.size() < 3)
        return Fail("winepath wants -w or -u and a path");
    std::string p = args[2];
    if (args[1] == "-w") {
        std::replace(p.begin(), p.end(), '/', '\\');
        std::printf("%s%s\n", p.rfind('\\', 0) == 0 ? "Z:" : "", p.c_str());
    } else {
        if (p.size() >= 2 && (p[0] == 'Z' || p[0] == 'z') && p[1] == ':')
            p = p.substr(2);
        std::replace(p.begin(), p.end(), '\\', '/');
        std::printf("%s\n", p.c_str());
    }
    return 0;
}

int Wineboot()
{
    const char* fail = std::getenv("TESTRUNNER_FAIL");
    if (fail && std::string(fail) == "wineboot")
        return Fail("wineboot asked to fail");
    const char* prefix = std::getenv("WINEPREFIX");
    if (!prefix || !*prefix)
        return Fail("no WINEPREFIX");
    std::error_code ec;
    fs::create_directories(prefix, ec);
    std::ofstream(std::string(prefix) + "/system.reg") << "WINE REGISTRY Version 2\n";
    return 0;
}

// The file of a directory whose name equals `name` but for case, as DOS finds it.
std::string FindNoCase(const std::string& dir, const std::string& name)
{
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(dir, ec)) {
        if (Lower(e.path().filename().string()) == Lower(name))
            return e.path().string();
    }
    return {};
}

int DosBox(const std::vector<std::string>& args)
{
    std::string conf;
    for (size_t i = 1; i + 1 < args.size(); ++i) {
        if (args[i] == "-conf")
            conf = args[i + 1];
    }
    std::ifstream in(conf);
    if (conf.empty() || !in)
        return Fail("no configuration");
    std::map<char, std::string> mounts;
    char drive = 'z';
    std::string program;
    std::vector<std::string> words;
    bool autoexec = false, exits = false;
    for (std::string line; std::getline(in, line);) {
        Log("conf", line);
        if (line == "[autoexec]") {
            autoexec = true;
            continue;
        }
        if (!autoexec || line.empty())
            continue;
        std::istringstream ls(line);
        std::string first;
        ls >> first;
        if (Lower(first) == "mount") {
            std::string d, path;
            ls >> d >> path;
            mounts[char(std::tolower(d[0]))] = path;
        } else if (first.size() == 2 && first[1] == ':') {
            drive = char(std::tolower(first[0]));
        } else if (Lower(first) == "exit") {
            exits = true;
        } else if (first.size() > 3 && first[1] == ':' && first[2] == '\\') {
            const char d = char(std::tolower(first[0]));
            if (!mounts.count(d))
                return Fail("program on an unmounted drive");
            program = FindNoCase(mounts[d], first.substr(3));
            if (program.empty())
                return Fail("DOS finds no " + first);
            for (std::string w; ls >> w;)
                words.push_back(w);
        }
    }
    if (program.empty() || !exits || !mounts.count(drive))
        return Fail("configuration without a program, an exit or a current drive");
    std::error_code ec;
    const std::string cwd = fs::canonical(mounts[drive], ec).string();
    if (ec || chdir(cwd.c_str()) != 0)
        return Fail("can't change to " + mounts[drive]);
    const std::string real = fs::canonical(program, ec).string();
    std::vector<std::string> argv{real};
    argv.insert(argv.end(), words.begin(), words.end());
    return Exec(real, argv);
}

int Java(const std::vector<std::string>& args)
{
    const char* java = std::getenv("TESTRUNNER_JAVA");
    if (!java || !*java)
        return Fail("no TESTRUNNER_JAVA");
    size_t i = 1;
    while (i < args.size() && args[i] != "-jar")
        ++i;
    std::vector<std::string> argv{java};
    argv.insert(argv.end(), args.begin() + long(i), args.end());
    return Exec(java, argv);
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv, argv + argc);
    std::error_code ec;
    const char* logEnv = std::getenv("TESTRUNNER_LOG");
    g_log = logEnv && *logEnv ? logEnv : (fs::path(args[0]).parent_path() / "testrunner.log");
    const std::string name = fs::path(args[0]).filename().string();

    Log("run", name + "\t" + std::to_string(getpid()));
    for (size_t i = 0; i < args.size(); ++i)
        Log("arg", std::to_string(i) + "\t" + args[i]);
    Log("cwd", fs::current_path(ec).string());
    std::vector<std::string> env;
    for (char** e = environ; *e; ++e)
        env.emplace_back(*e);
    std::sort(env.begin(), env.end());
    for (const std::string& e : env)
        Log("env", e);

    if (name == "wine" || name == "wine64")
        return Wine(args);
    if (name == "winepath")
        return Winepath(args);
    if (name == "wineboot")
        return Wineboot();
    if (name == "dosbox")
        return DosBox(args);
    if (name == "java")
        return Java(args);
    return Fail("unknown name " + name);
}
