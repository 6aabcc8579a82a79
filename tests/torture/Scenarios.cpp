#include "tests/torture/Scenarios.h"

#include "certs/FilterDlg.h"
#include "certs/PreEncryptDlg.h"
#include "certs/SignerList.h"
#include "editors/AddProfile.h"
#include "editors/AddRule.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/TreeText.h"

namespace tests::torture {
namespace {

constexpr wchar_t file[] = L"C:\\In\\exchanged.";
constexpr char verifying[] = "Operation = \"CHCK\"\n";  // has lists of signers
constexpr char encrypting[] = "Operation = \"ENCR\"\n";

// A profile to be deleted and one whose rules are to be renewed.
const std::string twoProfiles =
    GoldenLibrary + BelowService("Doomed\\rules\\Rule 0\\List") + "Signer Num = 0\n" +
    BelowService("Doomed\\rules\\Rule 1") + BelowService("Exchange") + "ZCSProfile = { \"Bank keys\" }\n" +
    BelowService("Exchange\\rules\\Rule 0\\Former\\deep") + "x = 1\n" + BelowService("Exchange\\rules\\Rule 1") +
    "Operation = \"ENCR\"\nExt num = 1\nC0 = \"CN=A\"\n" + BelowService("Exchange\\rules\\Rule 5") +
    "Operation = \"DELE\"\n";

// One profile with one rule, which names Anna and Boris, and times of revocation lists that are long past.
std::string Office(const std::string& operation) {
    return "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles\\1]\n"
           "ProfileName = \"Office\"\nBasePath = \"C:\\Keys\"\n" +
           Key(ServiceKey) + "LastCrlUpdate = { \"Bank;;1600000000\", \"Office;;1600000000\" }\n" +
           BelowService("Alpha") +
           "ZCSProfile = { \"Office\" }\nNotUseLDAP = { \"0\" }\nCrlUpdatePeriod = { \"6\" }\n" +
           BelowService("Alpha\\rules\\Rule 0") + operation +
           "Path In = \"C:\\In\"\nPath Out = \"C:\\Out\"\nPath Error = \"C:\\Error\"\n"
           "ZCSProfile = \"Office\"\nMask num = 1\nM0 = \"*.txt\"\nExt num = 2\n"
           "C0 = \"CN=Anna Keller,O=Kontor,C=DE\"\nC1 = \"CN=Boris Petrov,O=Bank,C=RU\"\nIs on = 1\n";
}

const std::string withLists =
    Office(verifying) + BelowService("Alpha\\rules\\Rule 0\\Chiefs") +
    "Signer Num = 2\nS0 = \"CN=Anna Keller,O=Kontor,C=DE\"\nS1 = \"CN=Boris Petrov,O=Bank,C=RU\"\n" +
    BelowService("Alpha\\rules\\Rule 0\\Former") + "Signer Num = 0\n";

void CopyFirstRule(Hand& hand) {
    hand.Select(id::Rules, 0);
    hand.Click(id::CopyRule);
}

void Save(Hand& hand) {
    hand.Click(id::Save);
}

void OpenFirstRule(Hand& hand) {
    hand.DoubleClick(id::Rules, 0);
}

// In the editor of a rule: its action button, then it is accepted.
void ActAndAccept(World& world) {
    world.hand.In<editors::CAddRule>([&hand = world.hand] {
        hand.Click(ruleid::ActionButton);
        hand.Click(ui::IdOk);
    });
}

// The picker is opened from the rule's editor.
void InPicker(World& world, std::function<void()> script) {
    ActAndAccept(world);
    world.hand.In<certs::CPreEncryptDlg>(std::move(script));
}

void AcceptPicker(World& world, Notes& /*notes*/) {
    InPicker(world, [&hand = world.hand] { hand.Click(ui::IdOk); });
}

void SilentNetwork(World& world, Notes& notes) {
    world.standIn.Serve(
        {.Certificates = {{.OwnerName = "CN=Anna Keller,O=Kontor,C=DE"}, {.OwnerName = "CN=Boris Petrov,O=Bank,C=RU"}},
         .NetworkAnswers = false});
    AcceptPicker(world, notes);
}

void FailingLists(World& world, Notes& notes) {
    world.standIn.Serve(
        {.Certificates = {{.OwnerName = "CN=Anna Keller,O=Kontor,C=DE"}, {.OwnerName = "CN=Boris Petrov,O=Bank,C=RU"}},
         .CrlDiagnostic = Diagnostic});
    AcceptPicker(world, notes);
}

// Only what happens between the two is tortured.
void ReadGroup(World& world, Notes& notes) {
    world.hand.file = std::wstring(file) + L"grx";
    world.parts.Files.AddFile(*world.hand.file, "CN=Guest,O=Elsewhere\r\nno name\r\nCN=Anna Keller,O=Kontor,C=DE\r\n");
    world.faults.Pause();
    InPicker(world, [&world, &notes] {
        world.faults.Resume();
        world.hand.Click(pickid::FromGroup);
        world.faults.Pause();
        notes = world.hand.Cells(pickid::Candidates);
    });
}

void WriteGroup(World& world, Notes& notes) {
    world.hand.file = std::wstring(file) + L"grx";
    world.faults.Pause();
    InPicker(world, [&world, &notes] {
        world.hand.Click(pickid::FromLocalStore);
        world.hand.Click(pickid::SelectAll);
        world.faults.Resume();
        world.hand.Click(pickid::Save);
        world.faults.Pause();
        notes = world.hand.Cells(pickid::Candidates);
    });
}

void SearchNetwork(World& world) {
    world.hand.In<certs::CFilterDlg>([&hand = world.hand] {
        hand.Choose(pickid::FilterField, 0);
        hand.Paste(pickid::FilterSample, L"Ivan*");
        hand.Click(ui::IdOk);
    });
}

void SearchAndChoose(World& world, Notes& notes) {
    SearchNetwork(world);
    InPicker(world, [&hand = world.hand, &notes] {
        hand.Click(pickid::FromLocalStore);
        hand.Click(pickid::FromLdap);
        notes = hand.Cells(pickid::Candidates);
        hand.Click(pickid::SelectAll);
        hand.Click(pickid::Choose);
        hand.ToggleCheck(pickid::Chosen, 0);
        hand.Click(pickid::Remove);
        hand.Click(ui::IdOk);
    });
}

// A list is added, another one edited, a third one deleted.
void ChangeSignerLists(World& world, Notes& notes) {
    SearchNetwork(world);
    InPicker(world, [&hand = world.hand] {
        if (hand.Text(pickid::Name).empty()) {
            hand.Click(pickid::FromLdap);
            hand.Click(pickid::SelectAll);
            hand.Click(pickid::Choose);
            hand.Paste(pickid::Name, L"Clerks");
        } else {
            hand.ToggleCheck(pickid::Chosen, 0);
            hand.Click(pickid::Remove);
        }
        if (!hand.Cells(pickid::Chosen).empty()) hand.Click(ui::IdOk);
    });
    world.hand.In<certs::SignerList>([&hand = world.hand, &notes] {
        hand.Click(signersid::Add);
        hand.Select(signersid::List, 1);
        hand.Click(signersid::Delete);
        hand.Select(signersid::List, 0);
        hand.Click(signersid::Edit);
        notes = hand.Cells(signersid::List);
        hand.Click(ui::IdOk);
    });
}

void PickRulesFile(World& world, Notes& /*notes*/) {
    world.hand.file = std::wstring(file) + L"prx";
    world.parts.Files.AddFile(*world.hand.file,
                              "DELE\nC:\\A\n\n\n0\n0\n1\n\n0\n0\n\n\n\n\r"
                              "MOVE\nC:\\A\nC:\\B\n\n*.txt\n0\n0\n\n0\n0\n\nC:\\C\nMoved\n0\n\r");
}

void NameNewProfile(World& world, Notes& /*notes*/) {
    world.hand.In<editors::CAddProfile>([&hand = world.hand] {
        hand.Paste(profileid::Name, L"Reports");
        hand.Click(ui::IdOk);
    });
}

}  // namespace

const std::vector<Scenario>& Scenarios() {
    static const std::vector<Scenario> all{
        {"first run", Kind::Load, GoldenLibrary, Nothing, {}, {}},
        {"load", Kind::Load, GoldenTrees, Nothing, {}, {}},
        {"save", Kind::Save, GoldenTrees, Nothing, CopyFirstRule, Save},
        {"save, a rule deleted", Kind::Save, twoProfiles, Nothing,
         [](Hand& hand) {
             hand.Select(id::Profiles, 1);
             hand.Select(id::Rules, 1);
             hand.Click(id::DeleteRule);
         },
         Save},
        {"save, a profile deleted", Kind::Save, twoProfiles, Nothing,
         [](Hand& hand) {
             hand.Select(id::Profiles, 0);
             hand.Click(id::DeleteProfile);
         },
         Save},
        {"save, a profile added", Kind::Save, twoProfiles, NameNewProfile,
         [](Hand& hand) { hand.Click(id::AddProfile); }, Save},
        {"import",
         Kind::Command,
         GoldenTrees,
         PickRulesFile,
         {},
         [](Hand& hand) { hand.Click(id::ImportRules); },
         OneStep},
        {"export",
         Kind::Command,
         GoldenTrees,
         PickRulesFile,
         {},
         [](Hand& hand) { hand.Click(id::ExportRules); },
         OneStep},
        {"groups file read", Kind::Command, Office(encrypting), ReadGroup, {}, OpenFirstRule},
        {"groups file written", Kind::Command, Office(encrypting), WriteGroup, {}, OpenFirstRule},
        {"context", Kind::Command, Office(encrypting), AcceptPicker, {}, OpenFirstRule},
        {"context, silent network", Kind::Command, Office(encrypting), SilentNetwork, {}, OpenFirstRule},
        {"context, no revocation lists", Kind::Command, Office(encrypting), FailingLists, {}, OpenFirstRule},
        {"picking", Kind::Command, Office(encrypting), SearchAndChoose, {}, OpenFirstRule},
        {"signer lists", Kind::Command, withLists, ChangeSignerLists, {}, OpenFirstRule},
    };
    return all;
}

}  // namespace tests::torture
