#include "certs/NameFields.h"

#include <gtest/gtest.h>

namespace {

using certs::NameField;
using Parts = std::vector<std::wstring_view>;

TEST(NameFields, HoldsEveryFieldWithItsKeyInOrder) {
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

TEST(NameFields, OffersTheFieldsWhoseLabelBeginsWithAWord) {
    const std::vector<std::wstring> offered = certs::OfferedFieldLabels();
    EXPECT_EQ(certs::OfferedFieldCount(), 16U);
    ASSERT_EQ(offered.size(), 16U);
    for (size_t i = 0; i < offered.size(); ++i) EXPECT_EQ(offered[i], certs::Fields()[i].label);
}

TEST(NameFields, AKeyStandsBetweenTheLastBrackets) {
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
    for (const auto& [label, key] : cases) EXPECT_EQ(certs::AttributeKey(label), key) << testing::PrintToString(label);
}

TEST(NameFields, ANameIsCutAtCommasBeforeAKey) {
    const std::pair<std::wstring_view, Parts> cases[] = {
        {L"", {L""}},
        {L"CN=A", {L"CN=A"}},
        {L"CN=A,O=B,C=RU", {L"CN=A", L"O=B", L"C=RU"}},
        {L"CN=A, O=B", {L"CN=A, O=B"}},      // a blank is no key
        {L"CN=A,B", {L"CN=A,B"}},            // nor is any other letter
        {L"CN=A,CITY", {L"CN=A", L"CITY"}},  // the key alone counts, not what follows
        {L"CN=A,T", {L"CN=A", L"T"}},        //
        {L"CN=A,UNSTRUCTUREDNAME=X", {L"CN=A", L"UNSTRUCTUREDNAME=X"}},
        {L"CN=A,UNSTRUCTUREDADDRESS=X", {L"CN=A", L"UNSTRUCTUREDADDRESS=X"}},
        {L"CN=A,UNSTRUCTURED=X", {L"CN=A,UNSTRUCTURED=X"}},
        {L"CN=A,o=B", {L"CN=A,o=B"}},  // the name is expected in upper case
        {L",CN=A,", {L"", L"CN=A,"}},
        {L",,C,C", {L",", L"C", L"C"}},
    };
    for (const auto& [name, parts] : cases) EXPECT_EQ(certs::CutName(name), parts) << testing::PrintToString(name);
}

TEST(NameFields, EveryKeyOfTheTableCuts) {
    for (const certs::NameField& field : certs::Fields()) {
        const std::wstring name = L"X=1," + field.key + L"=2";
        EXPECT_EQ(certs::CutName(name).size(), 2U) << testing::PrintToString(field.key);
    }
}

TEST(NameFields, ANameIsShownWithALineForEachOfferedField) {
    const std::pair<std::wstring_view, std::wstring_view> cases[] = {
        {L"", L""},
        {L"CN=A,O=B,C=RU", L"CN=A\nO=B\nC=RU"},
        {L"cn=A,o=B,Email=x", L"cn=A\no=B\nEmail=x"},
        {L"CN=A, O=B", L"CN=A, O=B"},
        {L"CN=A,City=B", L"CN=A,City=B"},
        {L"CN=A,O", L"CN=A,O"},
        {L"CN=A,O=", L"CN=A\nO="},
        {L",O=A,", L"\nO=A,"},
        {L"CN=A,UNSTRUCTUREDNAME=B", L"CN=A,UNSTRUCTUREDNAME=B"},  // not offered
        {L"CN=Ivanov, Ivan,OGRNIP=1,OGRN=2", L"CN=Ivanov, Ivan\nOGRNIP=1\nOGRN=2"},
    };
    for (const auto& [name, lines] : cases) EXPECT_EQ(certs::NameInLines(name), lines) << testing::PrintToString(name);
}

TEST(NameFields, ASortKeyReachesFromTheFieldToTheEnd) {
    struct Case {
        std::wstring_view name;
        std::wstring_view field;
        std::wstring_view key;
    };
    const Case cases[] = {
        {L"CN=A,O=B,C=RU", L"CN", L"CN=A,O=B,C=RU"},
        {L"CN=A,O=B,C=RU", L"O", L"O=B,C=RU"},
        {L"CN=A,O=B,C=RU", L"C", L"C=RU"},
        {L"CN=A,O=B,C=RU", L"OU", L""},
        {L"CN=A,OU=B,O=C", L"O", L"O=C"},
        {L"CN=A,O=1,O=2", L"O", L"O=1,O=2"},
        {L"CN=A, O=B", L"O", L""},    // not directly behind the comma
        {L"CN=A,o=B", L"O", L""},     // case matters
        {L"XO=1,O=2", L"O", L"O=2"},  // in the middle of a key it does not count
        {L"CN=A,O", L"O", L""},
        {L"CN=A,O=", L"O", L"O="},
        {L"CN=A,,O=B", L"O", L"O=B"},
        {L"", L"CN", L""},
        {L"CN", L"CN", L""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(certs::SortKey(c.name, c.field), c.key)
            << testing::PrintToString(c.name) << " by " << testing::PrintToString(c.field);
}

}  // namespace
