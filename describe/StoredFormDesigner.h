#pragma once

#include "describe/ObjectDesign.h"
#include "describe/StoredForm.h"

#include <map>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// Designs the forms that a database stores.
///
/// The records of a form can be selected if its source is a table and each of its columns belongs to it.
class StoredFormDesigner {
  public:
    /// The objects are those of all tables and queries, by their names. Both must outlive the designer.
    StoredFormDesigner(const Database& database, const std::map<std::string, ObjectDesign>& objects);

    [[nodiscard]] ObjectDesign design(const StoredForm& form) const;

  private:
    ObjectDesign design(const StoredForm& form, std::vector<std::string> around) const;
    void addControl(ObjectDesign& object, const StoredControl& stored) const;
    void addSubform(ObjectDesign& object, const StoredControl& stored,
                    const std::vector<std::string>& around) const;
    [[nodiscard]] const ObjectDesign* sourceOf(const StoredForm& form) const;
    [[nodiscard]] ForeignKey linkOf(const ObjectDesign& object, const StoredControl& stored,
                                    const ObjectDesign& inner) const;

    const Database& database_;
    const std::map<std::string, ObjectDesign>& objects_;
};

}  // namespace mergeloom::describe
