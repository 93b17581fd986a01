#pragma once
// Shared variables by name, so that a script can print any of them: "AlfaL(1)", "kodPair(0,3)", "JD".

#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "core/failure.h"
#include "core/numbers.h"

namespace tarvex {

class NameTable {
public:
    /// Adds a variable under its name; it must outlive the table.  Arrays take as many indices as they have
    /// dimensions, each counted as the array's own subscript.
    template <class T>
    void add(std::string name, const T& variable) {
        readers_[std::move(name)] = [&variable](const std::vector<int>& indices) {
            return valueAt(variable, indices, 0);
        };
    }
    /// Adds a member of a struct when a script can print it: what is no number, text or array of such has no
    /// name.
    template <class T>
    void addMember(std::string name, const T& member) {
        if constexpr (readable<T>()) add(std::move(name), member);
    }
    /// Adds a value that is computed when it is asked for.
    void addComputed(std::string name, std::function<std::string(const std::vector<int>&)> reader) {
        readers_[std::move(name)] = std::move(reader);
    }

    bool knows(const std::string& name) const { return readers_.contains(name); }
    std::vector<std::string> names() const;
    /// Value of "NAME" or "NAME(i)" or "NAME(i,j)": numbers with 17 digits and a decimal point.
    /// Throws SubscriptFailure for a bad index and Failure for an unknown name.
    std::string value(std::string_view nameAndIndices) const;

private:
    template <class T>
    static constexpr bool readable() {
        if constexpr (requires { typename T::value_type; } && !std::is_convertible_v<T, std::string>)
            return readable<typename T::value_type>();
        else
            return std::is_arithmetic_v<T> || std::is_convertible_v<T, std::string>;
    }
    template <class T>
    static std::string valueAt(const T& v, const std::vector<int>& indices, std::size_t depth) {
        if constexpr (std::is_arithmetic_v<T>) {
            if (depth != indices.size()) throw SubscriptFailure("лишний номер в скобках");
            return toFullText(static_cast<double>(v));
        } else if constexpr (std::is_convertible_v<T, std::string>) {
            if (depth != indices.size()) throw SubscriptFailure("лишний номер в скобках");
            return v;
        } else {
            if (depth >= indices.size()) throw SubscriptFailure("не хватает номера в скобках");
            const int i = indices[depth];
            if (i < 0 || i >= static_cast<int>(v.size()))
                throw SubscriptFailure("номер вне границ: " + std::to_string(i));
            return valueAt(static_cast<const typename T::value_type&>(v[i]), indices, depth + 1);
        }
    }

    std::map<std::string, std::function<std::string(const std::vector<int>&)>> readers_;
};

}  // namespace tarvex
