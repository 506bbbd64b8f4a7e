#include "office/libreoffice/calls/CallMethods.h"
#include "office/libreoffice/calls/CallValues.h"
#include "office/libreoffice/job/CallHandler.h"
#include "office/libreoffice/word/WriterEditor.h"

#include <array>
#include <tuple>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <variant>

namespace mergeloom::libreoffice {

namespace {

using AnyObject =
    std::variant<DocumentEditorPtr, word::BookmarkPtr, word::BookmarksPtr, word::CellPtr, word::CellsPtr,
                 word::ColumnsPtr, word::FieldPtr, word::FieldsPtr, word::FontPtr, word::InlineShapesPtr,
                 word::MailMergePtr, word::RangePtr, word::RowPtr, word::RowsPtr, word::SelectionPtr,
                 word::ShapeRangePtr, word::TablePtr, word::TablesPtr, word::UndoRecordPtr>;

/// Maps the numbers that the other process uses to objects.
class ObjectTable {
  public:
    void add(std::int64_t number, AnyObject object) { objects_.insert_or_assign(number, std::move(object)); }
    void remove(std::int64_t number) { objects_.erase(number); }

    /// Raises std::out_of_range for an unknown number and std::bad_variant_access for an object of another
    /// interface.
    template <class Interface>
    [[nodiscard]] const std::shared_ptr<Interface>& get(std::int64_t number) const {
        return std::get<std::shared_ptr<Interface>>(objects_.at(number));
    }

  private:
    std::unordered_map<std::int64_t, AnyObject> objects_;
};

/// Reads an argument from a request and holds it during the call.
template <typename Parameter>
struct Argument {
    Argument(const ObjectTable&, CallReader& in) : value(takeValue<std::remove_cvref_t<Parameter>>(in)) {}
    std::remove_cvref_t<Parameter> value;
};
template <>
struct Argument<word::Range&> {
    Argument(const ObjectTable& objects, CallReader& in)
        : range(objects.get<word::Range>(in.number())), value(*range) {}
    word::RangePtr range;
    word::Range& value;
};

/// Writes the result. The caller has chosen the number of an object, so only its presence is written.
template <typename Result>
void putResult(ObjectTable& objects, std::int64_t number, CallWriter& out, const Result& result) {
    if constexpr (ObjectReference<Result>) {
        if (result) objects.add(number, result);
        putValue(out, result != nullptr);
    } else {
        putValue(out, result);
    }
}

template <class Interface, class Result, class Owner, class... Parameters>
void run(Result (Owner::*method)(Parameters...), ObjectTable& objects, CallReader& in, CallWriter& out) {
    const std::shared_ptr<Interface>& object = objects.get<Interface>(in.number());
    const std::int64_t number = in.number();
    // Braces guarantee that the arguments are read in order.
    std::tuple<Argument<Parameters>...> arguments{Argument<Parameters>(objects, in)...};
    const auto call = [&](auto&... argument) -> Result { return ((*object).*method)(argument.value...); };
    if constexpr (std::is_void_v<Result>) {
        std::apply(call, arguments);
    } else {
        putResult(objects, number, out, std::apply(call, arguments));
    }
}

template <class Called>
void runMethod(ObjectTable& objects, CallReader& in, CallWriter& out) {
    run<typename Called::Interface>(Called::kMember, objects, in, out);
}

using Runner = void (*)(ObjectTable&, CallReader&, CallWriter&);

constexpr auto kRunners = []<std::size_t... kNumbers>(std::index_sequence<kNumbers...>) {
    return std::array<Runner, kMethodCount>{&runMethod<std::tuple_element_t<kNumbers, Methods>>...};
}
(std::make_index_sequence<kMethodCount>());

class WriterCalls final : public CallHandler {
  public:
    explicit WriterCalls(const Reference<css::uno::XComponentContext>& office) : office_(office) {}

    std::string answer(const std::string& request) override {
        CallWriter out = doneCall();
        for (CallReader in(request); !in.isAtEnd();) {
            out = doneCall();
            const auto method = static_cast<std::size_t>(in.number());
            if (method == kRelease) {
                objects_.remove(in.number());
            } else {
                kRunners.at(method)(objects_, in, out);
            }
        }
        return out.bytes();
    }

    std::int64_t take(const DocumentReference& document) override {
        objects_.add(++documents_, makeEditor(office_, document));
        return documents_;
    }

  private:
    Reference<css::uno::XComponentContext> office_;
    ObjectTable objects_;
    std::int64_t documents_ = 0;
};

}  // namespace

std::unique_ptr<CallHandler> makeCallHandler(const Reference<css::uno::XComponentContext>& office) {
    return std::make_unique<WriterCalls>(office);
}

}  // namespace mergeloom::libreoffice
