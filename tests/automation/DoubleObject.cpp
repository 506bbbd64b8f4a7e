#include "automation/DoubleObject.h"

#include "automation/Faults.h"
#include "base/AutomationError.h"
#include "base/Text.h"
#include "base/windows/WindowsText.h"
#include "office/com/automation/ErrorNumbers.h"
#include "office/com/automation/Variant.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace mergeloom::automation {

namespace {

/// The interface that only objects of this process have.
constexpr IID kOwnInterface{0x7d0c5a1e, 0x3b42, 0x4f0e, {0x9a, 0x51, 0x2e, 0x6c, 0x1d, 0x84, 0xb7, 0x03}};
constexpr unsigned kControlFacility = 0x800A0000;

/// An object of automation with a reference count.
template <class Interface>
class CountedReferences : public Interface {
  public:
    CountedReferences() = default;
    CountedReferences(const CountedReferences&) = delete;
    CountedReferences& operator=(const CountedReferences&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

  protected:
    virtual ~CountedReferences() = default;

  private:
    std::atomic<ULONG> count_ = 1;
};

class Enumerator final : public CountedReferences<IEnumVARIANT> {
  public:
    explicit Enumerator(std::vector<DispatchPtr> items) : items_(std::move(items)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        *result = id == IID_IUnknown || id == IID_IEnumVARIANT ? this : nullptr;
        if (*result == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* result, ULONG* count) override {
        if (faults().rejectsCall()) return RPC_E_CALL_REJECTED;
        ULONG given = 0;
        for (; given < wanted && at_ < items_.size(); ++given, ++at_)
            result[given] = com::Variant(Value(items_[at_])).release();
        if (count != nullptr) *count = given;
        return given == wanted ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG /*count*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** /*result*/) override { return E_NOTIMPL; }

  private:
    std::vector<DispatchPtr> items_;
    std::size_t at_ = 0;
};

struct Parameter {
    std::string name;
    bool isOptional;
};

std::vector<Parameter> parametersOf(const std::string& list) {
    std::vector<Parameter> parameters;
    for (const std::string_view part : split(list, ',')) {
        std::string name(trimBlanks(part));
        const bool isOptional = name.ends_with('?');
        if (isOptional) name.pop_back();
        if (!name.empty()) parameters.push_back({name, isOptional});
    }
    return parameters;
}

HRESULT raise(EXCEPINFO* info, const AutomationError& error) {
    if (info == nullptr) return DISP_E_EXCEPTION;
    *info = {};
    info->bstrSource = com::makeText("Double");
    info->bstrDescription = com::makeText(error.description());
    const bool isShort = error.number() <= 0xFFFF;
    info->scode = static_cast<SCODE>(isShort ? kControlFacility | error.number() : error.number());
    return DISP_E_EXCEPTION;
}

class DoubleObject final : public CountedReferences<IDispatch> {
  public:
    DoubleObject(Members members, std::shared_ptr<model::Object> object, Items items)
        : members_(std::move(members)), object_(std::move(object)), items_(std::move(items)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        *result = id == IID_IUnknown || id == IID_IDispatch || id == kOwnInterface ? this : nullptr;
        if (*result == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*number*/, LCID /*language*/, ITypeInfo** /*info*/) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*unused*/, OLECHAR** names, UINT count, LCID /*language*/,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID /*unused*/, LCID /*language*/, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                     UINT* wrongArgument) override;

    [[nodiscard]] const std::shared_ptr<model::Object>& object() const { return object_; }

  private:
    HRESULT enumerate(VARIANT* result) const;
    static HRESULT call(const Member& member, const DISPPARAMS& parameters, VARIANT* result);

    Members members_;
    std::shared_ptr<model::Object> object_;
    Items items_;
};

HRESULT DoubleObject::GetIDsOfNames(REFIID /*unused*/, OLECHAR** names, UINT count, LCID /*language*/,
                                    DISPID* ids) {
    if (faults().rejectsCall()) return RPC_E_CALL_REJECTED;
    const auto nameAt = [&](UINT number) { return windows::utf8Text(names[number]); };
    const auto member = std::ranges::find_if(
        members_, [&](const Member& known) { return equalsIgnoringAsciiCase(known.name, nameAt(0)); });
    if (member == members_.end() || faults().lacks(member->name)) return DISP_E_UNKNOWNNAME;
    ids[0] = static_cast<DISPID>(member - members_.begin()) + 1;
    const std::vector<Parameter> parameters = parametersOf(member->parameters);
    for (UINT number = 1; number < count; ++number) {
        const auto parameter = std::ranges::find_if(parameters, [&](const Parameter& known) {
            return equalsIgnoringAsciiCase(known.name, nameAt(number));
        });
        if (parameter == parameters.end()) return DISP_E_UNKNOWNNAME;
        ids[number] = static_cast<DISPID>(parameter - parameters.begin());
    }
    return S_OK;
}

HRESULT DoubleObject::Invoke(DISPID id, REFIID /*unused*/, LCID /*language*/, WORD flags,
                             DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                             UINT* /*wrongArgument*/) {
    try {
        if (faults().rejectsCall()) return RPC_E_CALL_REJECTED;
        const HRESULT fault = faults().beforeCall();
        if (FAILED(fault)) return fault;
        if (id == DISPID_NEWENUM) return enumerate(result);
        if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return DISP_E_MEMBERNOTFOUND;
        const Member& member = members_[static_cast<std::size_t>(id) - 1];
        if ((flags & DISPATCH_PROPERTYPUT) == 0)
            return member.get ? call(member, *parameters, result) : DISP_E_MEMBERNOTFOUND;
        if (!member.put) return DISP_E_MEMBERNOTFOUND;
        if (parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
        member.put(com::valueOf(parameters->rgvarg[0]));
        return S_OK;
    } catch (const AutomationError& error) {
        return error.number() == com::kTypeMismatch ? DISP_E_TYPEMISMATCH : raise(info, error);
    } catch (const std::exception& error) {
        return raise(info, {kCommandFailed, error.what()});
    }
}

HRESULT DoubleObject::enumerate(VARIANT* result) const {
    if (!items_ || result == nullptr) return DISP_E_MEMBERNOTFOUND;
    result->vt = VT_UNKNOWN;
    result->punkVal = new Enumerator(items_());
    return S_OK;
}

HRESULT DoubleObject::call(const Member& member, const DISPPARAMS& parameters, VARIANT* result) {
    const std::vector<Parameter> known = parametersOf(member.parameters);
    if (parameters.cArgs > known.size()) return DISP_E_BADPARAMCOUNT;
    Given given(known.size());
    // Arguments are in reverse order, and those with names are first.
    for (UINT number = 0; number < parameters.cArgs; ++number) {
        const bool isNamed = number < parameters.cNamedArgs;
        const auto place = isNamed ? static_cast<std::size_t>(parameters.rgdispidNamedArgs[number])
                                   : parameters.cArgs - 1 - number;
        if (place >= given.size()) return DISP_E_PARAMNOTFOUND;
        given[place] = com::valueOf(parameters.rgvarg[number]);
    }
    for (std::size_t place = 0; place < given.size(); ++place) {
        if (given[place].isEmpty() && !known[place].isOptional) return DISP_E_PARAMNOTOPTIONAL;
    }
    const Value value = member.get(given);
    if (result == nullptr) return S_OK;
    *result = com::Variant(value).release();
    // A missing result differs from an omitted argument.
    if (value.isEmpty()) ::VariantInit(result);
    return S_OK;
}

}  // namespace

Member property(std::string name, std::function<Value()> get, std::function<void(const Value&)> put) {
    return {std::move(name), "", [get = std::move(get)](const Given&) { return get(); }, std::move(put)};
}

Member method(std::string name, std::string parameters, std::function<Value(const Given&)> call) {
    return {std::move(name), std::move(parameters), std::move(call), nullptr};
}

DispatchPtr makeObject(Members members, std::shared_ptr<model::Object> object, Items items) {
    return com::adopt(new DoubleObject(std::move(members), std::move(object), std::move(items)));
}

std::shared_ptr<model::Object> modelOf(const Value& argument) {
    const DispatchPtr passed = argument.object();
    void* own = nullptr;
    if (!passed || FAILED(passed->QueryInterface(kOwnInterface, &own)))
        throw AutomationError(com::kTypeMismatch, "The argument is no object of this office.");
    auto* const found = static_cast<DoubleObject*>(own);
    const std::shared_ptr<model::Object> object = found->object();
    found->Release();
    if (object) return object;
    throw AutomationError(com::kTypeMismatch, "The argument is an object of another class.");
}

}  // namespace mergeloom::automation
