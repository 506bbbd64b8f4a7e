// Headers that every test of LibreOffice's module includes, parsed once for all of them.
#pragma once

#include "tests.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
