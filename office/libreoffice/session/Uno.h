#pragma once

#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/uno/Reference.hxx>

/// An office in a process of its own, reached through UNO.
namespace mergeloom::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

/// A document that is open in an office.
using DocumentReference = Reference<css::lang::XComponent>;

}  // namespace mergeloom::libreoffice
