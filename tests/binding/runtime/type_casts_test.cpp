// SPDX-License-Identifier: LicenseRef-Proprietary
// Cast lists, their order, and the client data that are handed along them.
#include "tests/binding/support/type_table.h"

#include <gtest/gtest.h>

namespace
{

void *unchanged(void *pointer, int *)
{
    return pointer;
}

// A type whose cast list is [a, b, c, d].
class CastList : public testing::Test
{
protected:
    CastList()
    {
        for (CastRecord *const cast : {&fromD, &fromC, &fromB, &fromA}) {
            SWIG_LinkCast(&expected, cast);
        }
    }

    TypeRecord expected = makeType("expected");
    TypeRecord a = makeType("a");
    TypeRecord b = makeType("b");
    TypeRecord c = makeType("c");
    TypeRecord d = makeType("d");
    TypeRecord stranger = makeType("a"); // the name of another record
    CastRecord fromA = makeCast(&a);
    CastRecord fromB = makeCast(&b);
    CastRecord fromC = makeCast(&c);
    CastRecord fromD = makeCast(&d);
};

TEST_F(CastList, isLinkedAtItsFront)
{
    EXPECT_EQ(castNames(expected), (Names{"a", "b", "c", "d"}));
    EXPECT_EQ(expected.cast, &fromA);
    EXPECT_EQ(fromA.prev, nullptr);
    EXPECT_EQ(fromD.next, nullptr);
}

TEST_F(CastList, keepsItsOrderWhenTheHeadMatches)
{
    EXPECT_EQ(SWIG_FindCast(&expected, &a), &fromA);
    EXPECT_EQ(castNames(expected), (Names{"a", "b", "c", "d"}));
}

TEST_F(CastList, movesAMatchInTheMiddleToTheFront)
{
    EXPECT_EQ(SWIG_FindCast(&expected, &c), &fromC);
    EXPECT_EQ(castNames(expected), (Names{"c", "a", "b", "d"}));
    EXPECT_EQ(expected.cast, &fromC);
    EXPECT_EQ(fromC.prev, nullptr);
    EXPECT_EQ(fromC.next, &fromA);
    EXPECT_EQ(fromA.prev, &fromC);
    EXPECT_EQ(fromB.next, &fromD);
    EXPECT_EQ(fromD.prev, &fromB);
}

TEST_F(CastList, movesTheSecondToTheFront)
{
    EXPECT_EQ(SWIG_FindCast(&expected, &b), &fromB);
    EXPECT_EQ(castNames(expected), (Names{"b", "a", "c", "d"}));
    EXPECT_EQ(fromA.next, &fromC);
    EXPECT_EQ(fromC.prev, &fromA);
}

TEST_F(CastList, movesTheLastToTheFront)
{
    EXPECT_EQ(SWIG_FindCast(&expected, &d), &fromD);
    EXPECT_EQ(castNames(expected), (Names{"d", "a", "b", "c"}));
    EXPECT_EQ(fromC.next, nullptr);
}

TEST_F(CastList, keepsTheMostRecentlyMatchedFirst)
{
    SWIG_FindCast(&expected, &d);
    SWIG_FindCast(&expected, &b);
    SWIG_FindCast(&expected, &d);
    EXPECT_EQ(castNames(expected), (Names{"d", "b", "a", "c"}));
}

TEST_F(CastList, isLeftAloneByASearchThatFails)
{
    TypeRecord absent = makeType("z");
    EXPECT_EQ(SWIG_FindCast(&expected, &absent), nullptr);
    EXPECT_EQ(castNames(expected), (Names{"a", "b", "c", "d"}));
}

TEST_F(CastList, isSearchedForRecordsAndNotForNames)
{
    EXPECT_EQ(SWIG_FindCast(&expected, &stranger), nullptr);
    EXPECT_EQ(SWIG_FindCastByName(&expected, stranger.name), &fromA);
}

TEST_F(CastList, isReorderedByASearchForAName)
{
    EXPECT_EQ(SWIG_FindCastByName(&expected, "c"), &fromC);
    EXPECT_EQ(castNames(expected), (Names{"c", "a", "b", "d"}));
    EXPECT_EQ(SWIG_FindCastByName(&expected, "z"), nullptr);
}

TEST_F(CastList, mayBeEmpty)
{
    TypeRecord lonely = makeType("lonely");
    EXPECT_EQ(SWIG_FindCast(&lonely, &lonely), nullptr);
}

class ClientData : public CastList
{
protected:
    int data = 0;
    int others = 0;
};

TEST_F(ClientData, areSetAndHandedToTheTypesOfTheCastList)
{
    SWIG_SetClientData(&expected, &data);
    for (const TypeRecord *const type : {&expected, &a, &b, &c, &d}) {
        EXPECT_EQ(type->clientData, &data) << type->name;
    }
}

TEST_F(ClientData, doNotPassAConverter)
{
    fromB.converter = unchanged;
    SWIG_SetClientData(&expected, &data);
    EXPECT_EQ(a.clientData, &data);
    EXPECT_EQ(b.clientData, nullptr);
    EXPECT_EQ(c.clientData, &data);
}

TEST_F(ClientData, doNotReplaceThoseThatATypeHas)
{
    b.clientData = &others;
    SWIG_SetClientData(&expected, &data);
    EXPECT_EQ(b.clientData, &others);
    EXPECT_EQ(c.clientData, &data);
}

TEST_F(ClientData, doReplaceThoseOfTheTypeItself)
{
    expected.clientData = &others;
    SWIG_SetClientData(&expected, &data);
    EXPECT_EQ(expected.clientData, &data);
}

TEST_F(ClientData, areHandedOnByTheTypesThatGetThem)
{
    TypeRecord far = makeType("far");
    TypeRecord beyondOthers = makeType("beyond");
    CastRecord fromFar = makeCast(&far);
    CastRecord fromBeyond = makeCast(&beyondOthers);
    SWIG_LinkCast(&d, &fromFar);
    SWIG_LinkCast(&b, &fromBeyond);
    b.clientData = &others; // so it is not reached, and hands nothing on
    SWIG_SetClientData(&expected, &data);
    EXPECT_EQ(far.clientData, &data);
    EXPECT_EQ(beyondOthers.clientData, nullptr);
}

TEST_F(ClientData, reachTypesThatAcceptEachOther)
{
    CastRecord back = makeCast(&expected);
    CastRecord itself = makeCast(&expected);
    SWIG_LinkCast(&a, &back);
    SWIG_LinkCast(&expected, &itself);
    SWIG_SetClientData(&expected, &data);
    EXPECT_EQ(expected.clientData, &data);
    EXPECT_EQ(a.clientData, &data);
}

TEST_F(ClientData, canBeTakenAwayFromATypeThatAcceptsItself)
{
    CastRecord itself = makeCast(&expected);
    SWIG_LinkCast(&expected, &itself);
    expected.clientData = &data;
    SWIG_SetClientData(&expected, nullptr);
    EXPECT_EQ(expected.clientData, nullptr);
}

TEST_F(ClientData, leaveTheOrderOfTheCastListAlone)
{
    SWIG_SetClientData(&expected, &data);
    EXPECT_EQ(castNames(expected), (Names{"a", "b", "c", "d"}));
}

} // namespace
