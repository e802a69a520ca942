// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/types/tables.h"

#include "binding/runtime/types.h"

#include <algorithm>

namespace
{

constexpr std::size_t mostBindings = 8;
constexpr std::size_t mostTypes = 64;
constexpr std::size_t mostOperations = 64;

std::size_t number(char character, std::size_t count)
{
    return static_cast<unsigned char>(character - '0') % count;
}

} // namespace

void *clientData(char character)
{
    static char blocks[8];
    const std::size_t choice = number(character, 1 + sizeof(blocks));
    return choice == 0 ? nullptr : &blocks[choice - 1];
}

void *convertPlainly(void *pointer, int *)
{
    return static_cast<char *>(pointer) + 1;
}

void *convertAllocating(void *pointer, int *newMemory)
{
    *newMemory = 1;
    return pointer;
}

Tables::Tables(std::string_view input)
{
    while (!input.empty()) {
        const std::size_t end = std::min(input.find('\n'), input.size());
        if (end > 0) {
            readLine(input.substr(0, end));
        }
        input.remove_prefix(std::min(end + 1, input.size()));
    }
    finish();
}

const char *Tables::keep(std::string_view text)
{
    return texts_.emplace_back(text).c_str();
}

void Tables::readLine(std::string_view line)
{
    const char letter = line[0];
    const std::string_view text = line.substr(1);
    switch (letter) {
    case 'L':
        linked = true;
        break;
    case 'M':
        if (bindings.size() < mostBindings) {
            bindings.push_back({});
        }
        break;
    case 't':
    case 'n':
        addType(text, letter == 't');
        break;
    case 'c':
    case 'v':
    case 'a':
        addCast(letter, text);
        break;
    case 'd':
        if (!types.empty()) {
            types.back().record.clientData = clientData('1');
        }
        break;
    default:
        if (operations.size() < mostOperations) {
            operations.push_back({letter, std::string(text)});
        }
    }
}

void Tables::addType(std::string_view text, bool named)
{
    if (types.size() == mostTypes) {
        return;
    }
    if (bindings.empty()) {
        bindings.push_back({});
    }
    const std::size_t tab = std::min(text.find('\t'), text.size());
    Type &type = types.emplace_back();
    type.record.name = named ? keep(text.substr(0, tab)) : nullptr;
    type.record.str = tab < text.size() ? keep(text.substr(tab + 1)) : nullptr;
    bindingOf_.push_back(bindings.size() - 1);
}

void Tables::addCast(char kind, std::string_view text)
{
    if (types.empty() || text.empty() || types.back().casts.size() == mostTypes) {
        return;
    }
    Type &type = types.back();
    CastRecord cast = {};
    if (kind != 'c') {
        cast.converter = kind == 'v' ? convertPlainly : convertAllocating;
    }
    type.casts.push_back(cast);
    type.from.push_back(static_cast<std::size_t>(static_cast<unsigned char>(text[0] - '0')));
}

void Tables::finish()
{
    for (std::size_t i = 0; i < types.size(); ++i) {
        Type &type = types[i];
        if (!linked && type.record.name == nullptr) {
            type.record.name = "";
        }
        for (std::size_t cast = 0; cast < type.from.size(); ++cast) {
            type.casts[cast].type = &types[type.from[cast] % types.size()].record;
        }
        type.casts.push_back({});
        Binding &binding = bindings[bindingOf_[i]];
        binding.typeInitial.push_back(&type.record);
        binding.castInitial.push_back(type.casts.data());
    }
    for (std::size_t i = 0; i < bindings.size(); ++i) {
        Binding &binding = bindings[i];
        // Room for the null; until the initialisation it has none of the types.
        binding.types.resize(binding.typeInitial.size() + 1);
        binding.record.types = binding.types.data();
        binding.record.size = binding.typeInitial.size();
        if (linked) {
            std::copy(binding.typeInitial.begin(), binding.typeInitial.end(),
                      binding.types.begin());
            binding.record.next = &bindings[(i + 1) % bindings.size()].record;
        }
    }
    if (linked) {
        for (Type &type : types) {
            for (std::size_t cast = 0; cast < type.from.size(); ++cast) {
                SWIG_LinkCast(&type.record, &type.casts[cast]);
            }
        }
    }
}

Binding &Tables::binding(char character)
{
    return bindings[number(character, bindings.size())];
}

Type &Tables::type(char character)
{
    return types[number(character, types.size())];
}
