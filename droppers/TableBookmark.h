#pragma once

#include "droppers/DropReports.h"
#include "office/model/word/Document.h"
#include "office/model/word/Table.h"
#include "xml/TreeView.h"
#include "xml/XmlNodeCollection.h"

#include <string>

/// The bookmark, and in a workbook the range name, by which the table of an object or subform is known.
namespace mergeloom {

/// The bookmark's name for the table of a node with that name: an object's ends in "T", which keeps it apart
/// from the place of a field of the same name, a subform's does not. Empty when nothing usable is left.
std::string tableBookmarkName(const TreeNode& node, const std::string& name);

/// The name of the cells of such a table in a workbook, by the same rule. Empty when nothing usable is left.
std::string tableRangeName(const TreeNode& node, const std::string& name);

/// The name of the table of the object or subform that a control stands in, by one of the rules above; empty
/// for a control without a parent.
std::string tableNameOf(const XmlNodeCollection& xmlNodes, const TreeNode& control,
                        std::string (*rule)(const TreeNode&, const std::string&));

/// Deletes the table under the bookmark. A bookmark that holds no table any more, and one over a single cell
/// of a table, which is a place in another table, stay.
void deleteTableOf(word::Document& document, const std::string& bookmarkName);

/// Puts the bookmark over the whole table. A bookmark of that name that has lost its table moves here; a
/// field of that name keeps it, and the table gets a further name. False when it failed.
bool markTable(DropReports& reports, word::Document& document, word::Table& table,
               const std::string& bookmarkName);

}  // namespace mergeloom
