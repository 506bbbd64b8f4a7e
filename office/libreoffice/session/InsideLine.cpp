#include "office/libreoffice/session/InsideLine.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "office/libreoffice/session/UnoText.h"

#include <dlfcn.h>

#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <com/sun/star/loader/XImplementationLoader.hpp>

namespace mergeloom::libreoffice {

namespace {

using Context = Reference<css::uno::XComponentContext>;

/// Makes the office load the library and create its job. Nothing is installed in the office.
Reference<css::task::XJob> loadJob(const Context& office, const std::string& library) {
    const Reference<css::loader::XImplementationLoader> loader(
        office->getServiceManager()->createInstanceWithContext("com.sun.star.loader.SharedLibrary", office),
        UNO_QUERY_THROW);
    const Reference<css::lang::XSingleComponentFactory> factory(
        loader->activate("mergeloom.Inside", {}, toUno(fileUrl(library)), {}), UNO_QUERY_THROW);
    return {factory->createInstanceWithContext(office), UNO_QUERY_THROW};
}

css::uno::Any execute(const Reference<css::task::XJob>& job, const char* command,
                      const css::uno::Any& value) {
    const css::beans::NamedValue argument(toUno(command), value);
    return job->execute(css::uno::Sequence<css::beans::NamedValue>(&argument, 1));
}

using Bytes = css::uno::Sequence<sal_Int8>;

css::uno::Any executeCipher(const Reference<css::task::XJob>& job, const char* command,
                            const std::string& file, const std::string& password) {
    css::uno::Sequence<css::uno::Any> values(2);
    values.getArray()[0] <<=
        Bytes(reinterpret_cast<const sal_Int8*>(file.data()), static_cast<sal_Int32>(file.size()));
    values.getArray()[1] <<= toUno(password);
    return execute(job, command, css::uno::Any(values));
}

std::string stringOf(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

CallPipe connect(const Reference<css::task::XJob>& job, const std::string& folder) {
    CallListener listener(folder);
    execute(job, kInsideConnect, css::uno::Any(toUno(folder)));
    return listener.accept();
}

}  // namespace

std::string insideLibrary() {
    Dl_info info{};
    ::dladdr(reinterpret_cast<const void*>(&insideLibrary), &info);
    std::string library = joinPath(parentFolder(fullPath(info.dli_fname)), "mergeloom_inside.so");
    if (fileExists(library)) return library;
    throw AutomationError(kNotAvailable, "The file '" + library + "' is missing. Install the program anew.");
}

InsideLine::InsideLine(const Context& office, const std::string& library, const std::string& folder)
    : job_(loadJob(office, library)), pipe_(connect(job_, folder)) {}

std::string InsideLine::ask(const std::string& request) {
    pipe_.send(FrameKind::Request, request);
    return receive().bytes;
}

CallFrame InsideLine::receive() {
    while (true) {
        if (!isServed_) execute(job_, kInsideServe, {});
        isServed_ = true;
        CallFrame frame = pipe_.receive();
        if (frame.kind == FrameKind::Answer) return frame;
        isServed_ = false;
    }
}

std::int64_t InsideLine::handOver(const DocumentReference& document) {
    rest();
    sal_Int64 number = 0;
    execute(job_, kInsideDocument, css::uno::Any(document)) >>= number;
    return number;
}

std::optional<std::string> InsideLine::decrypted(const std::string& file, const std::string& password) {
    Bytes bytes;
    if (!(executeCipher(job_, kInsideDecrypt, file, password) >>= bytes)) return {};
    return stringOf(bytes);
}

std::string InsideLine::encrypted(const std::string& package, const std::string& password) {
    return stringOf(executeCipher(job_, kInsideEncrypt, package, password).get<Bytes>());
}

NamedCells InsideLine::namedCells(const DocumentReference& workbook) {
    const auto answer =
        execute(job_, kInsideNamedCells, css::uno::Any(workbook)).get<css::uno::Sequence<css::uno::Any>>();
    const auto bounds = answer[0].get<css::uno::Sequence<css::awt::Rectangle>>();
    return {{bounds.begin(), bounds.end()}, answer[1].get<bool>()};
}

void InsideLine::rest() {
    if (!isServed_) return;
    pipe_.send(FrameKind::Rest, {});
    (void)pipe_.receive();
    isServed_ = false;
}

}  // namespace mergeloom::libreoffice
