#pragma once
// What every test stands on: the test library, the containers and mathematics of the language, a folder of
// its own.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <numeric>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "core/failure.h"
#include "tests/support/temp_folder.h"
