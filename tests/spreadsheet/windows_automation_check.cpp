// SPDX-License-Identifier: GPL-2.0-or-later
// Exercises automation on Windows against a small program that this one registers;
// scripts/windows-check builds and runs it. Says what failed, and returns how much did.
#include "core/platform/platform.h"
#include "spreadsheet/officeautomation_p.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <windows.h>

using namespace officeautomation;

namespace {

int s_failures = 0;

void check(bool isTrue, const std::string &what)
{
    if (isTrue)
        return;
    std::printf("failed: %s\n", what.c_str());
    ++s_failures;
}

constexpr wchar_t kServer[] = L"automation_server.exe";

std::wstring folder()
{
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path().wstring() + L'\\';
}

/// In the view of all classes: the user's own ones are not part of it everywhere.
void store(const std::wstring &key, const std::wstring &value)
{
    RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

/// A class and a name of its own for each behaviour, known while this lives.
class Registered
{
public:
    explicit Registered(const std::wstring &behaviour) : m_name(L"KeloCheck." + behaviour)
    {
        GUID id{};
        CoCreateGuid(&id);
        wchar_t text[64];
        StringFromGUID2(id, text, 64);
        m_class = text;
        store(m_name + L"\\CLSID", m_class);
        store(m_name + L"\\CurVer", m_name + L".17");
        store(L"CLSID\\" + m_class + L"\\LocalServer32",
              L"\"" + folder() + kServer + L"\" " + behaviour + L" " + m_class);
    }
    ~Registered()
    {
        for (const std::wstring &key : {m_name, L"CLSID\\" + m_class})
            RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
    }
    Registered(const Registered &) = delete;
    Registered &operator=(const Registered &) = delete;
    [[nodiscard]] const std::wstring &name() const { return m_name; }

private:
    std::wstring m_name;
    std::wstring m_class;
};

std::string textOf(const std::wstring &file)
{
    std::string text;
    std::getline(std::ifstream(std::filesystem::path(file)), text, '\0');
    return text;
}

bool isServerRunning()
{
    return std::ranges::any_of(platform::processNames(), [](const std::string &name) {
        return name.find("automation_server") != std::string::npos;
    });
}

struct Case
{
    const char *what;
    const wchar_t *behaviour;
    Kind kind;
    int seconds;
    ULONGLONG cancelAfter; ///< milliseconds; 0: never
    Outcome outcome;
    const char *text; ///< of the file
};

constexpr Case kCases[] = {
    {"writes a workbook", L"good", Kind::Workbook, 30, 0, Outcome::Written,
     "quiet read-only rows as 51"},
    {"writes an open document", L"good", Kind::OpenDocument, 30, 0, Outcome::Written,
     "quiet read-only rows as 60"},
    {"writes pages", L"good", Kind::Pdf, 30, 0, Outcome::Written, "quiet read-only rows as page 0"},
    {"tells what the program says", L"fails", Kind::Workbook, 30, 0, Outcome::Failed, ""},
    {"believes files, not words", L"lies", Kind::Workbook, 30, 0, Outcome::NothingWritten, ""},
    {"ends a program that hangs", L"hangs", Kind::Workbook, 2, 0, Outcome::TimedOut, ""},
    {"ends when the user cancels", L"hangs", Kind::Workbook, 30, 2000, Outcome::Cancelled, ""},
    {"ends a program that is only starting", L"good", Kind::Workbook, 30, 1, Outcome::Cancelled,
     ""}};

void run(const Case &given)
{
    const Registered program(given.behaviour);
    check(isInstalled(program.name()) && versionOf(program.name()) == L"17", "knows the program");
    const std::wstring source = folder() + L"automation_\u00FC.xlsx";
    const std::wstring target = folder() + L"automation_\u00FC.out";
    std::ofstream(std::filesystem::path(source)) << "rows";
    std::filesystem::remove(target);
    const ULONGLONG begin = GetTickCount64();
    ULONGLONG answered = 0; // when the user said no
    const auto goesOn = [&] {
        const bool goes = given.cancelAfter == 0 || GetTickCount64() - begin < given.cancelAfter;
        if (!goes && answered == 0)
            answered = GetTickCount64();
        return goes;
    };
    const Result result =
        convert({program.name(), source, target, given.kind, given.seconds, goesOn});
    const ULONGLONG taken = GetTickCount64() - begin;
    check(result.outcome == given.outcome, std::string(given.what) + ": outcome " +
                                               std::to_string(static_cast<int>(result.outcome)));
    check(textOf(target) == given.text, std::string(given.what) + ": file " + textOf(target));
    check(!isServerRunning(), std::string(given.what) + ": nothing is left running");
    if (given.outcome == Outcome::Failed)
        check(result.description == L"Open: The dog \u00e4te it.", "the program's own words");
    if (given.outcome == Outcome::TimedOut)
        check(taken >= 2000 && taken < 8000, "the time limit is kept");
    if (given.cancelAfter > 1000) // it has started long before
        check(answered > 0 && GetTickCount64() - answered < 500, "cancelling is quick");
    std::filesystem::remove(source);
    std::filesystem::remove(target);
}

} // namespace

int main()
{
    check(!isInstalled(L"KeloCheck.none"), "knows what is not installed");
    check(convert({L"KeloCheck.none", {}, {}, Kind::Pdf, 1, {}}).outcome == Outcome::NotInstalled,
          "drives no program that is not installed");
    for (const Case &given : kCases)
        run(given);
    std::puts(s_failures == 0 ? "automation: all is well" : "automation: failures");
    return s_failures;
}
