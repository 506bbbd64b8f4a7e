// Headers that every test of a window includes, parsed once for all of them.
#pragma once

#include "qt.h"
#include "tests.h"

#include <QTest>
