// SPDX-License-Identifier: GPL-2.0-or-later
// A program that is driven by automation, for the Windows check: as small as one can be. How it
// behaves, its command line says; "written" files tell what it was asked for.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <windows.h>

#include <oleauto.h>

namespace {

std::string s_behaviour; ///< "good", "hangs", "fails" or "lies"
HWND s_window = nullptr;
std::string s_asked; ///< what was called before the file was written

void writeFile(const std::wstring &file, const std::string &how)
{
    if (s_behaviour != "lies")
        std::ofstream(std::filesystem::path(file)) << s_asked << how;
}

std::string bytesOf(const std::wstring &file)
{
    std::string bytes;
    std::getline(std::ifstream(std::filesystem::path(file)), bytes, '\0');
    return bytes;
}

/// One object is application, list of workbooks and workbook in one: it lives as long as we do.
class Server : public IDispatch
{
public:
    virtual ~Server() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void **object) override
    {
        const bool isKnown = id == IID_IUnknown || id == IID_IDispatch;
        *object = isKnown ? static_cast<IDispatch *>(this) : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *names, UINT, LCID,
                                            DISPID *ids) override
    {
        const auto *const name = std::ranges::find(kNames, std::wstring_view(names[0]));
        *ids = name == std::end(kNames) ? DISPID_UNKNOWN : static_cast<DISPID>(name - kNames);
        return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD how, DISPPARAMS *given,
                                     VARIANT *result, EXCEPINFO *exception, UINT *) override
    {
        const auto argument = [given](UINT place) -> const VARIANT & {
            return given->rgvarg[given->cArgs - 1 - place];
        };
        switch (id) {
        case Hwnd:
            result->vt = VT_I4;
            result->lVal = static_cast<LONG>(reinterpret_cast<INT_PTR>(s_window));
            break;
        case DisplayAlerts:
            if (how == DISPATCH_PROPERTYPUT && argument(0).boolVal == VARIANT_FALSE)
                s_asked += "quiet ";
            break;
        case Workbooks:
            *result = self();
            break;
        case Open:
            if (s_behaviour == "hangs")
                Sleep(INFINITE);
            if (s_behaviour == "fails") {
                exception->bstrDescription = SysAllocString(L"The dog \u00e4te it.");
                exception->scode = E_FAIL;
                return DISP_E_EXCEPTION;
            }
            s_asked += argument(2).boolVal == VARIANT_TRUE ? "read-only " : "";
            s_asked += bytesOf(argument(0).bstrVal);
            *result = self();
            break;
        case SaveAs:
            writeFile(argument(0).bstrVal, " as " + std::to_string(argument(1).lVal));
            break;
        case ExportAsFixedFormat:
            writeFile(argument(1).bstrVal, " as page " + std::to_string(argument(0).lVal));
            break;
        case Close:
            break;
        case Quit:
            PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 0, 0);
            break;
        default:
            return DISP_E_MEMBERNOTFOUND;
        }
        return S_OK;
    }

private:
    enum { Hwnd, DisplayAlerts, Workbooks, Open, SaveAs, ExportAsFixedFormat, Close, Quit };
    static constexpr std::wstring_view kNames[] = {
        L"Hwnd",   L"DisplayAlerts",       L"Workbooks", L"Open",
        L"SaveAs", L"ExportAsFixedFormat", L"Close",     L"Quit"};

    VARIANT self()
    {
        VARIANT value{};
        value.vt = VT_DISPATCH;
        value.pdispVal = this;
        return value;
    }
};

class Factory : public IClassFactory
{
public:
    virtual ~Factory() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void **object) override
    {
        const bool isKnown = id == IID_IUnknown || id == IID_IClassFactory;
        *object = isKnown ? static_cast<IClassFactory *>(this) : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *, REFIID id, void **object) override
    {
        return m_server.QueryInterface(id, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    Server m_server;
};

} // namespace

/// @param given  behaviour and class, as the check registered them; the system adds a switch
int main(int count, char **given)
{
    if (count < 3)
        return 2;
    s_behaviour = given[1];
    const std::string className(given[2]);
    CLSID id{};
    if (FAILED(CLSIDFromString(std::wstring(className.begin(), className.end()).c_str(), &id)))
        return 2;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    s_window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    Factory factory;
    DWORD registered = 0;
    if (FAILED(CoRegisterClassObject(id, &factory, CLSCTX_LOCAL_SERVER, REGCLS_SINGLEUSE,
                                     &registered)))
        return 1;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    CoRevokeClassObject(registered);
    CoUninitialize();
    return 0;
}
