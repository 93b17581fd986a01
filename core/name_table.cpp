#include "core/name_table.h"

#include <charconv>

namespace tarvex {

std::vector<std::string> NameTable::names() const {
    std::vector<std::string> all;
    for (const auto& [name, reader] : readers_) all.push_back(name);
    return all;
}

std::string NameTable::value(std::string_view nameAndIndices) const {
    std::string name(nameAndIndices.substr(0, nameAndIndices.find('(')));
    std::vector<int> indices;
    if (name.size() < nameAndIndices.size()) {
        if (nameAndIndices.back() != ')') throw SubscriptFailure("нет закрывающей скобки");
        std::string_view list = nameAndIndices.substr(name.size() + 1);
        list.remove_suffix(1);
        while (!list.empty()) {
            const auto comma = list.find(',');
            std::string_view item = list.substr(0, comma);
            while (!item.empty() && item.front() == ' ') item.remove_prefix(1);
            int i = 0;
            const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), i);
            if (error != std::errc() || end != item.data() + item.size())
                throw SubscriptFailure("неверный номер в скобках");
            indices.push_back(i);
            list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
        }
    }
    const auto reader = readers_.find(name);
    if (reader == readers_.end()) throw Failure("нет общей переменной " + name);
    return reader->second(indices);
}

}  // namespace tarvex
