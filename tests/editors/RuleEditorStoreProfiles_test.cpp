// Changing the CS profile of a rule whose certificates come from another one.
#include <gtest/gtest.h>

#include "tests/editors/RuleEditor.h"

namespace tests {
namespace {

constexpr int office = 0, bank = 1, tax = 2;

class RuleEditorStoreProfiles : public RuleEditorTest {
  protected:
    void ExpectRecipientsQuestion(int answer) {
        ExpectQuestion(L"Recipients field must be clean to change CS profile.\r\nDelete all recipients from rule?",
                       answer);
    }
    void ExpectSignersQuestion(int answer) {
        ExpectQuestion(L"Signers field must be clean to change CS profile.\r\nDelete all signer lists from rule?",
                       answer);
    }
};

TEST_F(RuleEditorStoreProfiles, NothingIsAskedWhereThereIsNothingToLose) {
    const auto rule = Edit(PlainRule(L"DECR"), [this](ui::Dialog&) {
        EXPECT_EQ(memory_.RememberedCsProfile, bank);
        user_.Choose(ruleid::CsProfile, tax);
        EXPECT_EQ(memory_.RememberedCsProfile, tax);
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->ZCSProfile, L"Tax");
}

TEST_F(RuleEditorStoreProfiles, NothingIsAskedForTheSameProfile) {
    Edit(FullRule(L"ENCR"), [this](ui::Dialog&) {
        user_.Choose(ruleid::CsProfile, bank);
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"3");
        Leave();
    });
}

TEST_F(RuleEditorStoreProfiles, RecipientsGoWithTheUsersConsent) {
    const auto rule = Edit(FullRule(L"ENCR"), [this](ui::Dialog&) {
        ExpectRecipientsQuestion(ui::IdYes);
        user_.Choose(ruleid::CsProfile, office);
        EXPECT_EQ(Chosen(ruleid::CsProfile), L"Office");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"0");
        EXPECT_EQ(memory_.RememberedCsProfile, office);
        user_.Choose(ruleid::CsProfile, tax);  // nothing left to ask for
        certificates_.recipients = {L"CN=New"};
        user_.Click(ruleid::ActionButton);
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->ZCSProfile, L"Tax");
    EXPECT_EQ(rule->Certificates, std::vector<std::wstring>{L"CN=New"});
    EXPECT_EQ(certificates_.OpenedFor(), std::vector<std::string>{"Tax"});
}

TEST_F(RuleEditorStoreProfiles, RefusingLeavesProfileAndRecipients) {
    const auto rule = Edit(FullRule(L"ENCR"), [this](ui::Dialog&) {
        ExpectRecipientsQuestion(ui::IdNo);
        user_.Choose(ruleid::CsProfile, office);
        EXPECT_EQ(Chosen(ruleid::CsProfile), L"Bank");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"3");
        EXPECT_EQ(memory_.RememberedCsProfile, bank);
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->ZCSProfile, L"Bank");
    EXPECT_EQ(rule->Certificates, FullRule(L"ENCR").Certificates);
}

TEST_F(RuleEditorStoreProfiles, SignerListsGoOrStayInTheSameWay) {
    const auto rule = Edit(FullRule(L"RESG"), [this](ui::Dialog&) {
        ExpectSignersQuestion(ui::IdNo);
        user_.Choose(ruleid::CsProfile, office);
        EXPECT_EQ(Chosen(ruleid::CsProfile), L"Bank");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"2");
        ExpectSignersQuestion(ui::IdYes);
        user_.Choose(ruleid::CsProfile, office);
        EXPECT_EQ(Chosen(ruleid::CsProfile), L"Office");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"0");
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(rule);
    EXPECT_TRUE(rule->SignerLists.empty());
    EXPECT_EQ(rule->ResignProfile, L"Tax");
}

TEST_F(RuleEditorStoreProfiles, WhatWasTypedMeanwhileStays) {
    Edit(FullRule(L"ENCR"), [this](ui::Dialog&) {
        user_.Type(ruleid::PathIn, L"D:\\typed");
        ExpectRecipientsQuestion(ui::IdNo);
        user_.Choose(ruleid::CsProfile, office);
        EXPECT_EQ(user_.Text(ruleid::PathIn), L"D:\\typed");
        Leave();
    });
}

// A new rule inherits the index that the rule edited before it left behind.
TEST_F(RuleEditorStoreProfiles, ANewRuleComparesWithTheProfileOfTheRuleBefore) {
    config::Rule before = FullRule(L"ENCR");
    before.ZCSProfile = L"Tax";
    Edit(before, [this](ui::Dialog&) { Leave(); });
    EXPECT_EQ(memory_.RememberedCsProfile, tax);
    Edit({}, [this](ui::Dialog&) {
        EXPECT_EQ(Chosen(ruleid::CsProfile), L"Office");
        certificates_.recipients = {L"CN=Anna"};
        user_.Click(ruleid::ActionButton);
        user_.Choose(ruleid::CsProfile, tax);  // no question
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"1");
        ExpectRecipientsQuestion(ui::IdNo);
        user_.Choose(ruleid::CsProfile, office);
        EXPECT_EQ(Chosen(ruleid::CsProfile), L"Tax");
        Leave();
    });
    EXPECT_EQ(memory_.RememberedCsProfile, tax);
}

TEST_F(RuleEditorStoreProfiles, ARememberedProfileThatThisOneLacksLeavesNoneSelected) {
    memory_.RememberedCsProfile = 7;
    const auto rule = Edit({}, [this](ui::Dialog&) {
        certificates_.recipients = {L"CN=Anna"};
        user_.Click(ruleid::ActionButton);
        ExpectRecipientsQuestion(ui::IdNo);
        user_.Choose(ruleid::CsProfile, bank);
        EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::CsProfile).Selected(), std::nullopt);
        user_.Type(ruleid::PathIn, L"C:\\In");
        user_.Click(ruleid::ActionButton);
        Leave();
    });
    EXPECT_EQ(certificates_.OpenedFor().back(), "");
    EXPECT_EQ(memory_.RememberedCsProfile, 7);
}

}  // namespace
}  // namespace tests
