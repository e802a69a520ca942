// SPDX-License-Identifier: LicenseRef-Proprietary
// Lookups by exact name: which modules are searched, and the bisection in each.
#include "tests/binding/support/type_table.h"

#include <gtest/gtest.h>

namespace
{

TypeRecord *find(Module &start, Module &end, const char *name)
{
    return SWIG_FindMangledType(&start.record, &end.record, name);
}

TypeRecord *find(Module &module, const char *name)
{
    return find(module, module, name);
}

class ExactLookup : public testing::Test
{
protected:
    TypeRecord b = makeType("b");
    TypeRecord d = makeType("d");
    TypeRecord f = makeType("f");
    TypeRecord h = makeType("h");
    TypeRecord j = makeType("j");
};

TEST_F(ExactLookup, findsEveryTypeOfAModuleOfAnySize)
{
    const std::vector<TypeRecord *> all{&b, &d, &f, &h, &j};
    Module one{&b};
    Module two{&b, &d};
    Module three{&b, &d, &f};
    Module four{&b, &d, &f, &h};
    Module five{&b, &d, &f, &h, &j};
    for (Module *const module : {&one, &two, &three, &four, &five}) {
        for (std::size_t i = 0; i < module->record.size; ++i) {
            EXPECT_EQ(find(*module, all[i]->name), all[i])
                << all[i]->name << " of " << module->record.size;
        }
    }
}

TEST_F(ExactLookup, missesNamesBelowBetweenAndAboveTheOthers)
{
    Module one{&b};
    Module two{&b, &d};
    Module five{&b, &d, &f, &h, &j};
    for (Module *const module : {&one, &two, &five}) {
        for (const char *const missing : {"", "a", "ba", "c", "e", "g", "i", "k", "zz"}) {
            EXPECT_EQ(find(*module, missing), nullptr) << missing << " of " << module->record.size;
        }
    }
}

TEST_F(ExactLookup, comparesWholeNamesByBytes)
{
    TypeRecord upper = makeType("_p_Int");
    TypeRecord lower = makeType("_p_int");
    TypeRecord longer = makeType("_p_int_2");
    TypeRecord beyondAscii = makeType("_p_\xff");
    Module module{&upper, &lower, &longer, &beyondAscii};
    EXPECT_EQ(find(module, "_p_Int"), &upper);
    EXPECT_EQ(find(module, "_p_int"), &lower);
    EXPECT_EQ(find(module, "_p_int_2"), &longer);
    EXPECT_EQ(find(module, "_p_\xff"), &beyondAscii);
    EXPECT_EQ(find(module, "_p_in"), nullptr);
    EXPECT_EQ(find(module, "_p_int_"), nullptr);
    EXPECT_EQ(find(module, "_p_ int"), nullptr);
}

TEST_F(ExactLookup, doesNotLookAtTheNamesForPeople)
{
    TypeRecord type = makeType("_p_int", "b|d");
    Module module{&type};
    EXPECT_EQ(find(module, "b"), nullptr);
}

TEST_F(ExactLookup, findsNothingInAnEmptyModule)
{
    Module empty{};
    EXPECT_EQ(find(empty, "b"), nullptr);
}

TEST_F(ExactLookup, goesPastAnEmptyModule)
{
    Module empty{};
    Module other{&b};
    Module::link({&empty, &other});
    EXPECT_EQ(find(empty, "b"), &b);
}

TEST_F(ExactLookup, stopsAtANullNameInOneModuleAndGoesOnInTheNext)
{
    TypeRecord nameless = makeType(nullptr);
    Module broken{&b, &nameless, &f}; // the null name is met first
    Module other{&f};
    EXPECT_EQ(find(broken, "b"), nullptr);
    Module::link({&broken, &other});
    EXPECT_EQ(find(broken, "f"), &f);
}

TEST_F(ExactLookup, prefersTheModuleThatComesFirst)
{
    TypeRecord again = makeType("b");
    Module first{&b};
    Module second{&again};
    Module::link({&first, &second});
    EXPECT_EQ(find(first, "b"), &b);
    EXPECT_EQ(find(second, "b"), &again);
}

TEST_F(ExactLookup, searchesEveryModuleOnceWhenStartIsEnd)
{
    Module first{&b};
    Module second{&d};
    Module third{&f};
    Module::link({&first, &second, &third});
    for (Module *const start : {&first, &second, &third}) {
        EXPECT_EQ(find(*start, "b"), &b);
        EXPECT_EQ(find(*start, "d"), &d);
        EXPECT_EQ(find(*start, "f"), &f);
        EXPECT_EQ(find(*start, "h"), nullptr);
    }
}

TEST_F(ExactLookup, doesNotSearchTheEnd)
{
    Module first{&b};
    Module second{&d};
    Module third{&f};
    Module::link({&first, &second, &third});
    EXPECT_EQ(find(first, third, "b"), &b);
    EXPECT_EQ(find(first, third, "d"), &d);
    EXPECT_EQ(find(first, third, "f"), nullptr);
    EXPECT_EQ(find(first, second, "d"), nullptr);
    EXPECT_EQ(find(second, first, "b"), nullptr);
}

class EitherName : public ExactLookup
{
protected:
    static TypeRecord *findEither(Module &start, Module &end, const char *name)
    {
        return SWIG_FindType(&start.record, &end.record, name);
    }
};

TEST_F(EitherName, isFirstTheExactName)
{
    TypeRecord spoiler = makeType("a", "d");
    Module module{&spoiler, &d};
    EXPECT_EQ(findEither(module, module, "d"), &d);
}

TEST_F(EitherName, isTheExactNameEvenInALaterModule)
{
    TypeRecord spoiler = makeType("a", "d");
    Module first{&spoiler};
    Module second{&d};
    Module::link({&first, &second});
    EXPECT_EQ(findEither(first, first, "d"), &d);
}

TEST_F(EitherName, isThenANameForPeople)
{
    TypeRecord type = makeType("_p_Gadget", "struct Gadget *|Gadget *");
    Module module{&b, &type};
    EXPECT_EQ(findEither(module, module, "Gadget *"), &type);
    EXPECT_EQ(findEither(module, module, "struct Gadget *"), &type);
    EXPECT_EQ(findEither(module, module, "Widget *"), nullptr);
}

TEST_F(EitherName, takesTheFirstInTableOrder)
{
    TypeRecord one = makeType("_p_a", "int *");
    TypeRecord two = makeType("_p_b", "long *|int *");
    Module module{&one, &two};
    EXPECT_EQ(findEither(module, module, "int *"), &one);
    EXPECT_EQ(findEither(module, module, "long *"), &two);
}

TEST_F(EitherName, leavesOutTypesWithoutANameForPeople)
{
    TypeRecord nameless = makeType("_p_a", nullptr);
    TypeRecord type = makeType("_p_b", "int *");
    Module module{&nameless, &type};
    EXPECT_EQ(findEither(module, module, "int *"), &type);
}

TEST_F(EitherName, isLookedUpInTheSameModules)
{
    TypeRecord one = makeType("_p_a", "A *");
    TypeRecord two = makeType("_p_b", "B *");
    TypeRecord three = makeType("_p_c", "C *");
    Module first{&one};
    Module second{&two};
    Module third{&three};
    Module::link({&first, &second, &third});
    EXPECT_EQ(findEither(first, first, "C *"), &three);
    EXPECT_EQ(findEither(first, third, "B *"), &two);
    EXPECT_EQ(findEither(first, third, "C *"), nullptr);
}

} // namespace
