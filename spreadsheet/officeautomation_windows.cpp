// SPDX-License-Identifier: GPL-2.0-or-later
// Windows: has the installed spreadsheet program read one workbook and write it anew. Everything is
// called by its name, so that nothing of the program is needed to build this.
#include "spreadsheet/officeautomation_p.h"

#include <algorithm>
#include <atomic>
#include <cwchar>
#include <memory>
#include <utility>
#include <vector>
#include <windows.h>

#include <oleauto.h>

namespace officeautomation {
namespace {

constexpr DWORD kTick = 25;          ///< milliseconds between two questions whether to go on
constexpr DWORD kRetryAfter = 100;   ///< milliseconds; less would mean "at once"
constexpr DWORD kGracePeriod = 3000; ///< milliseconds that a program has for quitting

struct ReleaseOf
{
    void operator()(IUnknown *object) const { object->Release(); }
};
using Dispatch = std::unique_ptr<IDispatch, ReleaseOf>;

struct CloseHandleOf
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseHandleOf>;

/// A value for the program, or from it.
class Value
{
public:
    Value() { VariantInit(&m_value); }
    explicit Value(long number) : Value()
    {
        m_value.vt = VT_I4;
        m_value.lVal = number;
    }
    explicit Value(bool is) : Value()
    {
        m_value.vt = VT_BOOL;
        m_value.boolVal = is ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Value(const std::wstring &text) : Value()
    {
        m_value.vt = VT_BSTR;
        m_value.bstrVal = SysAllocString(text.c_str());
    }
    Value(Value &&other) noexcept : m_value(std::exchange(other.m_value, VARIANT{})) {}
    Value(const Value &) = delete;
    Value &operator=(const Value &) = delete;
    Value &operator=(Value &&) = delete;
    ~Value() { VariantClear(&m_value); }

    [[nodiscard]] VARIANT *data() { return &m_value; }
    [[nodiscard]] Dispatch object() const
    {
        if (m_value.vt != VT_DISPATCH || !m_value.pdispVal)
            return nullptr;
        m_value.pdispVal->AddRef();
        return Dispatch(m_value.pdispVal);
    }
    /// 0 when it is none.
    [[nodiscard]] long long number()
    {
        VARIANT whole{};
        return SUCCEEDED(VariantChangeType(&whole, &m_value, 0, VT_I8)) ? whole.llVal : 0;
    }

private:
    VARIANT m_value{};
};

template <typename... Arguments>
std::vector<Value> values(const Arguments &...arguments)
{
    std::vector<Value> list;
    list.reserve(sizeof...(arguments));
    (list.emplace_back(arguments), ...);
    return list;
}

/// What the system says of an error, in the user's language and in one line.
std::wstring systemText(HRESULT error)
{
    wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, static_cast<DWORD>(error), 0, text,
                                        static_cast<DWORD>(std::size(text)), nullptr);
    std::wstring result(text, length);
    while (!result.empty() && (result.back() <= L' ' || result.back() == L'.'))
        result.pop_back();
    if (!result.empty())
        return result;
    wchar_t number[16];
    std::swprintf(number, std::size(number), L"0x%08lX", static_cast<unsigned long>(error));
    return number;
}

/// The program's process, as far as it is ours: one that began after it was asked for.
class OwnProcess
{
public:
    OwnProcess() { GetSystemTimeAsFileTime(&m_asked); }
    /// @param window  one of the program's
    void take(HWND window)
    {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        constexpr DWORD kRights =
            PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_TERMINATE | SYNCHRONIZE;
        Handle handle(OpenProcess(kRights, FALSE, process));
        FILETIME begun{}, exited{}, inKernel{}, inUser{};
        if (handle && GetProcessTimes(handle.get(), &begun, &exited, &inKernel, &inUser) &&
            CompareFileTime(&begun, &m_asked) >= 0)
            m_handle = handle.release();
    }
    ~OwnProcess() { Handle(m_handle.exchange(nullptr)); }
    OwnProcess(const OwnProcess &) = delete;
    OwnProcess &operator=(const OwnProcess &) = delete;

    [[nodiscard]] bool isKnown() const { return m_handle != nullptr; }
    bool hasEnded(DWORD milliseconds) const
    {
        return WaitForSingleObject(m_handle, milliseconds) == WAIT_OBJECT_0;
    }
    void end() const
    {
        if (isKnown())
            TerminateProcess(m_handle, 1);
    }

private:
    FILETIME m_asked{};
    std::atomic<HANDLE> m_handle = nullptr; ///< the system's timer looks at it, too
};

/// Keeps the time and asks the user's side while calls wait. The system's timer ends the program
/// when its time is over, and wakes the waiting call, which then asks here whether to go on.
class Watch : public IMessageFilter
{
public:
    Watch(OwnProcess &process, int seconds, std::function<bool()> goesOn)
        : m_process(process),
          m_goesOn(std::move(goesOn)),
          m_thread(GetCurrentThreadId()),
          m_end(GetTickCount64() + static_cast<ULONGLONG>(std::max(seconds, 0)) * 1000),
          m_timer(CreateThreadpoolTimer(&Watch::onTick, this, nullptr))
    {
        MSG message;
        PeekMessageW(&message, nullptr, WM_NULL, WM_NULL, PM_NOREMOVE); // makes the queue
        CoRegisterMessageFilter(this, &m_before);
        ULARGE_INTEGER soon;
        soon.QuadPart = static_cast<ULONGLONG>(-10'000LL * kTick); // relative, in 100 ns
        FILETIME first{soon.LowPart, soon.HighPart};
        if (m_timer)
            SetThreadpoolTimer(m_timer, &first, kTick, 0);
    }
    virtual ~Watch()
    {
        if (m_timer) {
            SetThreadpoolTimer(m_timer, nullptr, 0, 0);
            WaitForThreadpoolTimerCallbacks(m_timer, TRUE);
            CloseThreadpoolTimer(m_timer);
        }
        IMessageFilter *own = nullptr;
        CoRegisterMessageFilter(m_before, &own);
        if (own)
            own->Release();
        if (m_before)
            m_before->Release();
    }
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    [[nodiscard]] bool isCancelled() const { return m_isCancelled; }
    [[nodiscard]] bool isLate() const { return GetTickCount64() >= m_end; }
    /// From now on a "no" of the user ends the call that waits.
    void noteStarted() { m_isStarting = false; }
    bool goesOn()
    {
        m_isCancelled = m_isCancelled || (m_goesOn && !m_goesOn());
        if (m_isCancelled)
            m_process.end();
        return !m_isCancelled;
    }

    // It lives as long as it is registered: nobody counts.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void **object) override
    {
        const bool isKnown = id == IID_IUnknown || id == IID_IMessageFilter;
        *object = isKnown ? static_cast<IMessageFilter *>(this) : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override
    {
        return SERVERCALL_ISHANDLED;
    }
    /// A program that shows a question, or is still starting, takes no calls.
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK, DWORD, DWORD) override
    {
        constexpr DWORD kGiveUp = static_cast<DWORD>(-1);
        return waits() ? kRetryAfter : kGiveUp;
    }
    DWORD STDMETHODCALLTYPE MessagePending(HTASK, DWORD, DWORD) override
    {
        MSG message;
        const auto none = reinterpret_cast<HWND>(-1); // messages to the thread alone
        while (PeekMessageW(&message, none, WM_NULL, WM_NULL, PM_REMOVE))
            continue;
        return waits() ? PENDINGMSG_WAITNOPROCESS : PENDINGMSG_CANCELCALL;
    }

private:
    /// Nobody could end a program that is only starting: it would stay behind.
    bool waits()
    {
        const bool goes = goesOn();
        return (goes || m_isStarting) && !isLate();
    }
    static void CALLBACK onTick(PTP_CALLBACK_INSTANCE, void *context, PTP_TIMER)
    {
        const Watch *const watch = static_cast<Watch *>(context);
        if (watch->isLate())
            watch->m_process.end();
        PostThreadMessageW(watch->m_thread, WM_NULL, 0, 0);
    }

    OwnProcess &m_process;
    std::function<bool()> m_goesOn;
    DWORD m_thread;
    ULONGLONG m_end; ///< as GetTickCount64() counts
    PTP_TIMER m_timer;
    IMessageFilter *m_before = nullptr;
    bool m_isCancelled = false;
    bool m_isStarting = true;
};

/// Calls by name. After the first call that failed nothing is called any more.
class Caller
{
public:
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }
    [[nodiscard]] const std::wstring &description() const { return m_description; }

    Value get(const Dispatch &object, const wchar_t *name)
    {
        return invoke(object, name, DISPATCH_PROPERTYGET, {});
    }
    void put(const Dispatch &object, const wchar_t *name, bool is)
    {
        invoke(object, name, DISPATCH_PROPERTYPUT, values(is));
    }
    template <typename... Arguments>
    Value call(const Dispatch &object, const wchar_t *name, const Arguments &...arguments)
    {
        return invoke(object, name, DISPATCH_METHOD, values(arguments...));
    }
    void fail(std::wstring description)
    {
        m_hasFailed = true;
        m_description = std::move(description);
    }

private:
    Value invoke(const Dispatch &object, const wchar_t *name, WORD how, std::vector<Value> given)
    {
        Value result;
        if (m_hasFailed)
            return result;
        if (!object) {
            fail(std::wstring(name) + L": " + systemText(E_POINTER));
            return result;
        }
        auto *member = const_cast<wchar_t *>(name);
        DISPID id = DISPID_UNKNOWN;
        HRESULT outcome = object->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id);
        EXCEPINFO exception{};
        if (SUCCEEDED(outcome)) {
            std::vector<VARIANT> arguments; // the last comes first; given still owns them
            for (auto value = given.rbegin(); value != given.rend(); ++value)
                arguments.push_back(*value->data());
            DISPID assigned = DISPID_PROPERTYPUT;
            const bool assigns = how == DISPATCH_PROPERTYPUT;
            DISPPARAMS parameters{arguments.data(), assigns ? &assigned : nullptr,
                                  static_cast<UINT>(arguments.size()), assigns ? 1U : 0U};
            outcome = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, how, &parameters,
                                     assigns ? nullptr : result.data(), &exception, nullptr);
        }
        if (FAILED(outcome))
            fail(std::wstring(name) + L": " + textOf(outcome, exception));
        return result;
    }

    /// What the program says itself, where it says anything.
    static std::wstring textOf(HRESULT outcome, EXCEPINFO &exception)
    {
        if (outcome == DISP_E_EXCEPTION && exception.pfnDeferredFillIn)
            exception.pfnDeferredFillIn(&exception);
        std::wstring text;
        if (exception.bstrDescription)
            text = exception.bstrDescription;
        for (BSTR string :
             {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile})
            SysFreeString(string);
        const bool hasCode = outcome == DISP_E_EXCEPTION && exception.scode != 0;
        return text.empty() ? systemText(hasCode ? exception.scode : outcome) : text;
    }

    bool m_hasFailed = false;
    std::wstring m_description;
};

/// The numbers by which the program knows its formats.
constexpr long kWorkbookFormat = 51;
constexpr long kOpenDocumentFormat = 60;
constexpr long kPdfType = 0;

void convertIn(const Dispatch &program, Caller &caller, const Conversion &wanted)
{
    caller.put(program, L"DisplayAlerts", false); // nobody is there to answer
    const Dispatch books = caller.get(program, L"Workbooks").object();
    constexpr long kNoUpdates = 0; // of links
    const Dispatch book = caller.call(books, L"Open", wanted.source, kNoUpdates, true).object();
    if (wanted.kind == Kind::Pdf)
        caller.call(book, L"ExportAsFixedFormat", kPdfType, wanted.target);
    else
        caller.call(book, L"SaveAs", wanted.target,
                    wanted.kind == Kind::Workbook ? kWorkbookFormat : kOpenDocumentFormat);
    caller.call(book, L"Close", false);
}

/// Asks it to quit; it does so when the last of its objects is let go, or is ended.
void leave(Dispatch program, const OwnProcess &process, Watch &watch)
{
    Caller caller;
    if (!process.isKnown()) // the user's, who goes on with it
        return caller.put(program, L"DisplayAlerts", true);
    if (!watch.isCancelled() && !watch.isLate())
        caller.call(program, L"Quit");
    program.reset();
    for (DWORD waited = 0; waited < kGracePeriod && !watch.isLate(); waited += kTick)
        if (process.hasEnded(kTick) || !watch.goesOn())
            break;
    process.end();
    process.hasEnded(kGracePeriod);
}

bool isWritten(const std::wstring &file)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    return GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data) &&
           (data.nFileSizeLow > 0 || data.nFileSizeHigh > 0);
}

Result convertByProgram(const CLSID &id, const Conversion &wanted)
{
    OwnProcess process;
    Watch watch(process, wanted.seconds, wanted.goesOn);
    IDispatch *created = nullptr;
    const HRESULT start = CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                           reinterpret_cast<void **>(&created));
    Dispatch program(created);
    Caller caller;
    if (program) {
        process.take(
            reinterpret_cast<HWND>(static_cast<INT_PTR>(caller.get(program, L"Hwnd").number())));
        watch.noteStarted();
        if (watch.goesOn())
            convertIn(program, caller, wanted);
        leave(std::move(program), process, watch);
    }
    if (watch.isCancelled())
        return {Outcome::Cancelled};
    if (isWritten(wanted.target) && !caller.hasFailed())
        return {Outcome::Written};
    if (watch.isLate())
        return {Outcome::TimedOut};
    if (!created)
        return {Outcome::NotStarted, systemText(start)};
    if (caller.hasFailed())
        return {Outcome::Failed, caller.description()};
    return {Outcome::NothingWritten};
}

} // namespace

bool isInstalled(const std::wstring &programId)
{
    CLSID id{};
    return SUCCEEDED(CLSIDFromProgID(programId.c_str(), &id));
}

std::wstring versionOf(const std::wstring &programId)
{
    wchar_t current[256];
    DWORD bytes = sizeof current;
    if (RegGetValueW(HKEY_CLASSES_ROOT, (programId + L"\\CurVer").c_str(), nullptr, RRF_RT_REG_SZ,
                     nullptr, current, &bytes) != ERROR_SUCCESS)
        return {};
    const std::wstring name(current); // "Excel.Application.16"
    const std::size_t point = name.rfind(L'.');
    const std::wstring last = point == std::wstring::npos ? std::wstring() : name.substr(point + 1);
    return last.find_first_not_of(L"0123456789") == std::wstring::npos ? last : std::wstring();
}

Result convert(const Conversion &wanted)
{
    const HRESULT apartment =
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    if (FAILED(apartment))
        return {Outcome::NotStarted, systemText(apartment)};
    CLSID id{};
    const bool isKnown = SUCCEEDED(CLSIDFromProgID(wanted.programId.c_str(), &id));
    Result result = isKnown ? convertByProgram(id, wanted) : Result{Outcome::NotInstalled};
    CoUninitialize();
    return result;
}

} // namespace officeautomation
