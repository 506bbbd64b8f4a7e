#pragma once

#include "office/embedded/letters/OmittedContent.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <cstddef>
#include <cstdint>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// Inserts the omitted content of a letter into one of its parts.
class OmittedRestoration {
  public:
    OmittedRestoration(opc::XmlPart& part, const OmittedContent& content)
        : part_(part), names_(part.root()), content_(content) {}

    void addMark(pugi::xml_node mark) { marks_.push_back(mark); }
    /// Notes the id of a bookmark of the part.
    void addId(const std::string& id) { ids_.insert(id); }
    /// Inserts the content at the marks. The marks stay.
    void restore();

  private:
    void restoreAt(pugi::xml_node mark, pugi::xml_node content);
    void insertRows(pugi::xml_node mark, pugi::xml_node rows);
    void insertBefore(pugi::xml_node next, pugi::xml_node content);
    void splitParagraph(pugi::xml_node mark, pugi::xml_node properties);
    void makeIdsUnique(pugi::xml_node content);
    std::string freeId();

    opc::XmlPart& part_;
    opc::WordNames names_;
    const OmittedContent& content_;
    std::vector<pugi::xml_node> marks_;
    std::set<std::string> ids_;
    std::int64_t lastId_ = 0;
};

}  // namespace mergeloom::embedded
