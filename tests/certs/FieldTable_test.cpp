#include "certs/FieldTable.h"

#include <gtest/gtest.h>

namespace {

using certs::NameField;

TEST(FieldTable, HoldsEveryFieldWithItsKeyInOrder) {
    const std::vector<NameField> expected{
        {L"Common name (CN)", L"CN"},
        {L"Surname (SN)", L"SN"},
        {L"Given name (GN)", L"GN"},
        {L"Country (C)", L"C"},
        {L"State (ST)", L"ST"},
        {L"Locality (L)", L"L"},
        {L"Street (STREET)", L"STREET"},
        {L"Organization (O)", L"O"},
        {L"Organization unit (OU)", L"OU"},
        {L"Title (T)", L"T"},
        {L"Primary State Registration Number (OGRN)", L"OGRN"},
        {L"Primary State Registration Number of the Sole Proprietor (OGRNIP)", L"OGRNIP"},
        {L"Insurance Number of Individual Ledger Account (SNILS)", L"SNILS"},
        {L"Individual Taxpayer Number (INN)", L"INN"},
        {L"Domain constrain (DC)", L"DC"},
        {L"Address RFC822 (EMAIL)", L"EMAIL"},
        {L"(UNSTRUCTUREDNAME)", L"UNSTRUCTUREDNAME"},
        {L"(UNSTRUCTUREDADDRESS)", L"UNSTRUCTUREDADDRESS"},
    };
    EXPECT_EQ(certs::Fields(), expected);
}

TEST(FieldTable, OffersTheFieldsWhoseLabelBeginsWithAWord) {
    const std::vector<std::wstring> offered = certs::OfferedFieldLabels();
    EXPECT_EQ(certs::OfferedFieldCount(), 16U);
    ASSERT_EQ(offered.size(), 16U);
    for (size_t i = 0; i < offered.size(); ++i) EXPECT_EQ(offered[i], certs::Fields()[i].Label);
}

TEST(FieldTable, AKeyStandsBetweenTheLastBrackets) {
    const std::pair<std::wstring_view, std::wstring_view> cases[] = {
        {L"Common name (CN)", L"CN"},
        {L"small (cn)", L"CN"},
        {L"two (A) (B)", L"B"},
        {L"nested ((X)", L"X"},
        {L"(ALONE)", L"ALONE"},
        {L"none", L""},
        {L"not at the end (CN) ", L""},
        {L"only closing CN)", L""},
        {L"nothing inside ()", L""},
        {L")", L""},
        {L"", L""},
    };
    for (const auto& [label, key] : cases)
        EXPECT_EQ(certs::AttributeKey(label), key) << testing::PrintToString(label);
}

}  // namespace
