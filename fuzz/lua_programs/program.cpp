// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/lua_programs/program.h"

namespace
{

using std::to_string;

struct Value {
    std::string text;
    std::size_t kind; // 0: none of the kinds
};

class Writer
{
public:
    Writer(const Supply &supply, Choices choices) : supply_(supply), choices_(choices)
    {
    }

    std::string write()
    {
        for (int count = 0; choices_.left() && count < mostStatements; ++count) {
            statement(0);
        }
        return text_;
    }

private:
    static constexpr int mostStatements = 60;
    static constexpr int deepest = 3;

    std::string number(std::size_t count)
    {
        return to_string(choices_.below(count) + 1);
    }

    std::string variable()
    {
        return "v" + number(4);
    }

    Value kind()
    {
        const std::size_t chosen = choices_.below(supply_.kinds.size()) + 1;
        if (chosen == supply_.nothing || chosen == supply_.withheld) {
            return {"nil", 0};
        }
        return {"V[" + to_string(chosen) + "]()", chosen};
    }

    std::string bytes()
    {
        std::string text = "\"";
        for (std::size_t left = choices_.below(12); left != 0; --left) {
            const std::string digits = to_string(choices_.byte());
            text += "\\" + std::string(3 - digits.size(), '0') + digits;
        }
        return text + "\"";
    }

    std::string key()
    {
        static const char *const keys[] = {
            ".get",     ".set",       ".fn",       ".type",     "__index",    "__newindex",
            "__gc",     "__getitem",  "__setitem", "malloc",    "free",       "__metatable",
            "__call",   "__tostring", "__len",     "__eq",      "__mode",     "__name",
            "getfd",    "dirty",      "loaded",    "loaders",   "preload",    "path",
            "__concat", "__add",      "find",      "radioOpen", "RadioHooks", "x",
        };
        return std::string("\"") + keys[choices_.below(sizeof keys / sizeof keys[0])] + "\"";
    }

    std::string function()
    {
        return "F[" + number(supply_.functions.size()) + "]";
    }

    std::string table()
    {
        return "T[" + number(supply_.tables) + "]";
    }

    Value value(int depth)
    {
        switch (choices_.below(depth < deepest ? 16 : 13)) {
        case 7:
            return {variable(), 0};
        case 8:
            return {"r[" + number(4) + "]", 0};
        case 9:
            return {to_string(static_cast<int>(choices_.byte()) - 64), 0};
        case 10:
            return {bytes(), 0};
        case 11:
            return {function(), 0};
        case 12:
            return choices_.below(2) == 0 ? Value{table(), 0} : Value{key(), 0};
        case 13: {
            std::string text = "setmetatable({" + value(depth + 1).text + "}, {";
            for (std::size_t left = choices_.below(3) + 1; left != 0; --left) {
                text += "[" + key() + "] = " + value(depth + 1).text + ", ";
            }
            return {text + "})", 0};
        }
        case 14:
            return {"function(...) " + block(depth + 1) + "return ... end", 0};
        case 15: {
            std::string text = "{";
            for (std::size_t left = choices_.below(4); left != 0; --left) {
                text += value(depth + 1).text + ", ";
            }
            return {text + "}", 0};
        }
        default:
            return kind();
        }
    }

    std::string block(int depth)
    {
        std::string outer;
        outer.swap(text_);
        for (std::size_t left = choices_.below(3); left != 0; --left) {
            statement(depth);
        }
        outer.swap(text_);
        return outer;
    }

    // What it is given is made first, and then counted.
    void call(int depth)
    {
        const std::size_t called = choices_.below(supply_.functions.size());
        std::size_t count = choices_.below(5);
        if (count != 0 && supply_.selfKinds[called] != 0 && choices_.below(4) != 0) {
            const std::string self = to_string(supply_.selfKinds[called]);
            text_ += "local a1 = V[" + self + "]() ";
            callWith(depth, called, 1, count, self);
        } else {
            callWith(depth, called, 0, count, "");
        }
    }

    void callWith(int depth, std::size_t called, std::size_t given, std::size_t count,
                  std::string kinds)
    {
        std::string names = given == 1 ? "a1" : "";
        for (std::size_t i = given + 1; i <= count; ++i) {
            const Value argument = value(depth + 1);
            const std::string name = "a" + to_string(i);
            text_ += "local " + name + " = " + argument.text + " ";
            names += (names.empty() ? "" : ", ") + name;
            if (argument.kind != 0) {
                kinds += (kinds.empty() ? "" : ", ") + to_string(argument.kind);
            }
        }
        if (count == 0) {
            kinds = to_string(supply_.nothing);
        }
        const std::string f = "F[" + to_string(called + 1) + "]";
        text_ += "met(" + to_string(called + 1) + (kinds.empty() ? "" : ", " + kinds) + ") ";
        const std::string arguments = names.empty() ? "" : ", " + names;
        switch (choices_.below(8)) {
        case 0:
            text_ += "r = {pcall(wrap(function() return " + f + "(" + names + ") end))} ";
            break;
        case 1:
            text_ += "r = {pcall(wrap(" + f + ")" + arguments + ")} ";
            break;
        case 2:
            text_ += variable() + " = " + f + "(" + names + ") ";
            break;
        case 3:
            text_ += "r = {pcall(" + f + arguments + (arguments.empty() ? ", " : ", ") +
                     "unpack(long, 1, " + to_string(choices_.below(7900)) + "))} ";
            break;
        default:
            text_ += "r = {pcall(" + f + arguments + ")} ";
        }
    }

    void statement(int depth)
    {
        text_ += "pcall(function(...) ";
        switch (choices_.below(depth < deepest ? 16 : 12)) {
        case 6:
            text_ += variable() + " = " + value(depth).text + " ";
            break;
        case 7:
            text_ += variable() + " = (" + value(depth).text + ")[" + value(depth).text + "] ";
            break;
        case 8:
            text_ += "local t = " + value(depth).text + " t[" + value(depth).text +
                     "] = " + value(depth).text + " ";
            break;
        case 9:
            text_ += "local t = " + table() + " t[" + key() + "] = " + value(depth).text + " ";
            break;
        case 10: {
            static const char *const operators[] = {"+", "..", "<", "==", "%", "<=", "^", "-"};
            const char *const sign = operators[choices_.below(8)];
            text_ +=
                variable() + " = " + value(depth).text + " " + sign + " " + value(depth).text + " ";
            break;
        }
        case 11: {
            static const char *const whole[] = {
                "collectgarbage()",
                "collectgarbage('step', 20)",
                "collectgarbage('setpause', 20)",
                "collectgarbage('setstepmul', 1000)",
                "radioOpen()",
                "radioClose()",
                "radioInit(1, 8, 7)",
                "v1, v2, v3, v4, r = nil, nil, nil, nil, {} collectgarbage()",
                "local function deep(n) return n == 0 or 1 + deep(n - 1) end deep(3000)",
                "v1 = #v1",
                "v2 = -v2",
                "v1(v2, v3, v4)",
            };
            text_ += whole[choices_.below(sizeof whole / sizeof whole[0])];
            text_ += " ";
            break;
        }
        case 12: {
            const std::string times = number(6);
            text_ += "for _ = 1, " + times + " do " + block(depth + 1) + "end ";
            break;
        }
        case 13:
            text_ += "wrap(function(...) " + block(depth + 1) + "yield(v1) " + block(depth + 1) +
                     "end)(" + value(depth).text + ") ";
            break;
        default:
            call(depth);
        }
        text_ += "end)\n";
    }

    const Supply &supply_;
    Choices choices_;
    std::string text_;
};

std::string make(const Supply &supply, std::size_t kind, int argument)
{
    return "local a" + to_string(argument) +
           (kind == supply.nothing ? " = nil " : " = V[" + to_string(kind) + "]() ");
}

} // namespace

std::string writeProgram(const Supply &supply, Choices choices)
{
    return "local v1, v2, v3, v4, r = 1, 'x', {}, RadioHooks(), {}\n" +
           Writer(supply, choices).write();
}

std::string writeSweep(const Supply &supply, std::size_t function, std::size_t position,
                       std::size_t firstKind)
{
    const std::string number = to_string(function + 1);
    const std::size_t kindCount = supply.kinds.size();
    std::string text;
    for (std::size_t kind = firstKind; kind <= kindCount; ++kind) {
        // Any will do, if only it differs.
        const std::size_t mixed = (function * 31 + kind * 17 + position * 7);
        const std::size_t self = supply.selfKinds[function];
        if (kind == supply.withheld) {
            continue;
        }
        std::size_t kinds[3] = {self != 0 ? self : mixed % kindCount + 1, mixed * 5 % kindCount + 1,
                                mixed * 11 % kindCount + 1};
        kinds[position] = kind;
        text += "at(" + to_string(kind) + ") pcall(function() ";
        std::string names;
        std::string met;
        for (std::size_t i = 0; i < 3; ++i) {
            if (kinds[i] == supply.withheld) {
                kinds[i] = supply.nothing;
            }
            if (kinds[i] == supply.nothing) {
                met += ", " + to_string(kinds[i]);
                break;
            }
            text += make(supply, kinds[i], static_cast<int>(i + 1));
            names += ", a" + to_string(i + 1);
            met += ", " + to_string(kinds[i]);
        }
        text += "met(" + number + met + ") pcall(F[" + number + "]" + names + ") end)\n";
    }
    return text;
}
