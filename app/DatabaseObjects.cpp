#include "app/DatabaseObjects.h"

#include "app/ListFormatting.h"
#include "app/MergeloomErrorCodes.h"
#include "base/Text.h"
#include "droppers/ObjectLayout.h"
#include "xml/modMSXMLHelper.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace mergeloom {

namespace {

using Objects = std::vector<DatabaseObject>;
using FoundObjects = std::vector<const DatabaseObject*>;

bool isObject(const XmlNode& element) {
    const StructureElement kind = structureElementOf(element.nodeName());
    return kind == StructureElement::Table || kind == StructureElement::Query ||
           kind == StructureElement::Form;
}

FoundObjects find(const Objects& objects, const std::function<bool(const DatabaseObject&)>& matches) {
    FoundObjects found;
    for (const DatabaseObject& object : objects) {
        if (matches(object)) found.push_back(&object);
    }
    return found;
}

bool bearsName(const DatabaseObject& object, const std::string& name) {
    return equalsIgnoringCase(object.name(), name);
}

bool bearsKindAndName(const DatabaseObject& object, const std::string& name) {
    return equalsIgnoringCase(object.kind() + " " + object.name(), name);
}

FoundObjects findNamed(const Objects& objects, const std::string& name) {
    FoundObjects exact = find(objects, [&](const auto& object) { return object.name() == name; });
    if (!exact.empty()) return exact;
    FoundObjects alike = find(objects, [&](const auto& object) { return bearsName(object, name); });
    if (!alike.empty()) return alike;
    return find(objects, [&](const auto& object) { return bearsKindAndName(object, name); });
}

/// Returns true when the objects are of several kinds. Those of one kind and one name cannot be told apart;
/// the first of them is taken.
bool areOfSeveralKinds(const FoundObjects& found) {
    return std::ranges::any_of(found, [&](const auto* object) {
        return object->kind() != found.front()->kind() || object->name() != found.front()->name();
    });
}

std::string titlesOf(const FoundObjects& objects) {
    std::vector<std::string> titles;
    std::ranges::transform(objects, std::back_inserter(titles),
                           [](const auto* object) { return object->title(); });
    return joinedNames(titles);
}

[[noreturn]] void refuseUnknown(const Objects& objects, const std::string& name) {
    const FoundObjects all = find(objects, [](const auto&) { return true; });
    throw MappingRefusal("The structure document has no object \"" + name + "\". It has " + titlesOf(all) +
                         ".");
}

}  // namespace

std::string DatabaseObject::kind() const {
    return StructureElementName(structureElementOf(element.nodeName()));
}

std::string DatabaseObject::name() const {
    return GetAttributeValue(element, Attribute::Name);
}

std::string DatabaseObject::title() const {
    return name().empty() ? kind() : kind() + " \"" + name() + "\"";
}

std::vector<DatabaseObject> objectsOf(MappingSource& source) {
    std::vector<DatabaseObject> objects;
    for (const TreeNode* node = source.firstObject(); node; node = node->Next()) {
        const XmlNode element = source.xmlNodes().Item(node->Key());
        if (isObject(element)) objects.push_back({node, element});
    }
    return objects;
}

const DatabaseObject& objectNamed(const std::vector<DatabaseObject>& objects, const std::string& name) {
    const FoundObjects found = findNamed(objects, name);
    if (found.empty()) refuseUnknown(objects, name);
    if (areOfSeveralKinds(found)) {
        throw MappingRefusal("The name \"" + name + "\" is that of several objects: " + titlesOf(found) +
                             ". Write the kind before it, such as \"" + found.front()->kind() + " " +
                             found.front()->name() + "\".");
    }
    return *found.front();
}

int controlCount(const DatabaseObject& object) {
    int count = 0;
    const std::function<void(const TreeNode&)> visit = [&](const TreeNode& node) {
        for (const TreeNode* child = node.Child(); child; child = child->Next()) {
            ++count;
            visit(*child);
        }
    };
    visit(*object.node);
    return count;
}

}  // namespace mergeloom
