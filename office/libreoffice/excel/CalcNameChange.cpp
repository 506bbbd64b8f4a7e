#include "office/libreoffice/excel/CalcNameChange.h"

#include <com/sun/star/sheet/XNamedRange.hpp>

namespace mergeloom::libreoffice {

void CalcNameChange::exchange() {
    if (removed_) {
        names_->addNewByName(name_, removed_->content, removed_->position, removed_->type);
        removed_.reset();
        return;
    }
    removed_ = read();
    names_->removeByName(name_);
}

CalcNameChange::Definition CalcNameChange::read() const {
    const Reference<css::sheet::XNamedRange> name(names_->getByName(name_), UNO_QUERY_THROW);
    return {name->getContent(), name->getReferencePosition(), name->getType()};
}

}  // namespace mergeloom::libreoffice
