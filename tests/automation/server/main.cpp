// The double as a program of its own, which Windows starts for an object of its class. It ends when the last
// of its applications has quit.
#include "automation/DoubleClasses.h"
#include "automation/ExcelDouble.h"
#include "automation/Faults.h"
#include "automation/ServedFiles.h"
#include "automation/WordDouble.h"
#include "base/DiskFileStore.h"
#include "base/windows/WindowsText.h"
#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/embedded/word/EmbeddedOffice.h"

#include <objbase.h>
#include <windows.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace mergeloom::automation {

namespace {

int applications = 0;

void applicationHasQuit() {
    if (--applications == 0) ::PostQuitMessage(0);
}

/// The files of an office. They are the disk's until a test has set its own.
class OfficeFiles final : public FileStore {
  public:
    void use(const DispatchPtr& served) {
        served_.use(served);
        current_ = &served_;
    }
    bool fileExists(const std::string& path) override { return current_->fileExists(path); }
    std::string read(const std::string& path) override { return current_->read(path); }
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override {
        current_->save(path, writer);
    }

  private:
    DiskFileStore disk_;
    ServedFiles served_;
    FileStore* current_ = &disk_;
};

/// Returns the members with which a test controls the double.
Members controls(const std::shared_ptr<OfficeFiles>& files) {
    return {
        property("TestFiles", nullptr, [files](const Value& served) { files->use(served.object()); }),
        method("TestFault", "Kind, FirstCall, Calls",
               [](const Given& given) -> Value {
                   faults().plan(FaultKind{given[0].integer()}, given[1].integer(), given[2].integer());
                   return {};
               }),
        // The call returns when the test has set its event.
        method("TestWait", "Event",
               [](const Given& given) -> Value {
                   const HANDLE event =
                       ::OpenEventW(SYNCHRONIZE, FALSE, windows::wideText(given[0].text()).c_str());
                   ::WaitForSingleObject(event, INFINITE);
                   ::CloseHandle(event);
                   return {};
               }),
    };
}

DispatchPtr makeWord() {
    ++applications;
    const auto files = std::make_shared<OfficeFiles>();
    return makeWordDouble(embedded::makeWordApplication(*files), controls(files), applicationHasQuit);
}

DispatchPtr makeExcel() {
    ++applications;
    const auto files = std::make_shared<OfficeFiles>();
    return makeExcelDouble(embedded::makeExcelApplication(*files), controls(files), applicationHasQuit);
}

/// Makes applications for other programs.
class Factory final : public IClassFactory {
  public:
    explicit Factory(std::function<DispatchPtr()> make) : make_(std::move(make)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        *result = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
        return *result == nullptr ? E_NOINTERFACE : S_OK;
    }
    // It lives as long as the program.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** result) override {
        *result = nullptr;
        if (faults().rejectsCall()) return RPC_E_CALL_REJECTED;
        return outer != nullptr ? CLASS_E_NOAGGREGATION : make_()->QueryInterface(id, result);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }

  private:
    std::function<DispatchPtr()> make_;
};

/// A class of which other programs can make objects while this object lives.
class OfferedClass {
  public:
    OfferedClass(const DoubleClass& offered, std::function<DispatchPtr()> make) : factory_(std::move(make)) {
        result_ = ::CoRegisterClassObject(offered.identifier, &factory_, CLSCTX_LOCAL_SERVER,
                                          REGCLS_MULTIPLEUSE, &cookie_);
    }
    OfferedClass(const OfferedClass&) = delete;
    OfferedClass& operator=(const OfferedClass&) = delete;
    ~OfferedClass() { ::CoRevokeClassObject(cookie_); }

    [[nodiscard]] bool isOffered() const { return SUCCEEDED(result_); }

  private:
    Factory factory_;
    DWORD cookie_ = 0;
    HRESULT result_;
};

/// The command line: [--word CLASS | --excel CLASS] [--fault KIND FIRST COUNT] [--shown]. A program for a
/// further class offers nothing else, since it will be ended by force.
struct Options {
    DoubleClass word = kWordDouble;
    DoubleClass excel = kExcelDouble;
    bool offersWord = true;
    bool offersExcel = true;
    bool isShown = false;
};

Options optionsOf(int count, char** arguments) {
    Options options;
    const auto classAfter = [&](int number, DoubleClass& offered) {
        ::CLSIDFromString(windows::wideText(arguments[number + 1]).c_str(), &offered.identifier);
    };
    for (int number = 1; number < count; ++number) {
        const std::string_view option = arguments[number];
        if (option == "--word") {
            classAfter(number, options.word);
            options.offersExcel = false;
        } else if (option == "--excel") {
            classAfter(number, options.excel);
            options.offersWord = false;
        } else if (option == "--fault") {
            faults().plan(FaultKind{std::atoi(arguments[number + 1])}, std::atoi(arguments[number + 2]),
                          std::atoi(arguments[number + 3]));
        }
        options.isShown = options.isShown || option == "--shown";
    }
    return options;
}

/// Makes a window with documents of the user.
void showWindow() {
    ::CreateWindowExW(0, L"STATIC", L"Documents", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100, nullptr,
                      nullptr, nullptr, nullptr);
}

int serve(const Options& options) {
    if (options.isShown) showWindow();
    const std::unique_ptr<OfferedClass> word(options.offersWord ? new OfferedClass(options.word, makeWord)
                                                                : nullptr);
    const std::unique_ptr<OfferedClass> excel(options.offersExcel ? new OfferedClass(options.excel, makeExcel)
                                                                  : nullptr);
    if ((word && !word->isOffered()) || (excel && !excel->isOffered())) return 1;
    MSG message;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return 0;
}

}  // namespace

}  // namespace mergeloom::automation

int main(int count, char** arguments) {
    if (FAILED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    const int status = mergeloom::automation::serve(mergeloom::automation::optionsOf(count, arguments));
    ::CoUninitialize();
    return status;
}
