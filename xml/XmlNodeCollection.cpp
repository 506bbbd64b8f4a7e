#include "xml/XmlNodeCollection.h"

#include <charconv>

namespace mergeloom {

int XmlNodeCollection::Add(XmlNode element) {
    elements_.push_back(element);
    return Count();
}

XmlNode XmlNodeCollection::Item(std::string_view key) const {
    if (key.empty() || key.front() == '0') return XmlNode();
    const char* const last = key.data() + key.size() - 1;
    if (*last != 'k' && *last != 'K') return XmlNode();

    std::size_t number = 0;
    const auto [end, error] = std::from_chars(key.data(), last, number);
    const bool held = error == std::errc() && end == last && number <= elements_.size();
    return held ? elements_[number - 1] : XmlNode();
}

}  // namespace mergeloom
