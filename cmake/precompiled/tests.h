// Headers that every test includes, parsed once for all of them.
#pragma once

#include "standard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
