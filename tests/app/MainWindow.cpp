#include "tests/app/MainWindow.h"

namespace tests {

void MainWindowTest::SeedSmallConfiguration() {
    Seed(OfficeAndBank);
    Seed(R"([HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha]
ZCSProfile = { "Office", "Bank" }

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha\rules\Rule 0]
Operation = "ENCR"
Descryption = "Encrypt reports"
Path In = "C:\In"
Path Out = "C:\Out"
Path Error = "C:\Error"
ZCSProfile = "Office"
Mask num = 2
M0 = "*.txt"
M1 = "*.pdf"
Ext num = 1
C0 = "CN=Anna"
Is on = 1

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha\rules\Rule 1]
Operation = "MOVE"
Descryption = "Move reports"
Path Out 2 = "C:\Second"
Mask = "*.dat"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha\rules\Rule 2]
Operation = "ENCR"
Descryption = "Encrypt mail"
Is on = 1

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha\rules\Rule 3]
Descryption = "Encrypt nothing yet"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Beta]
ZCSProfile = { "Bank" }

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Beta\rules\Rule 0]
Operation = "DELE"
Descryption = "Delete drafts"
)");
}

int32_t MainWindowTest::StoredInteger(const std::wstring& path, const std::wstring& name) {
    int32_t value = 0;
    EXPECT_TRUE(store_.Open(platform::RootKey::LocalMachine, path, {}));
    EXPECT_EQ(store_.ReadInteger(name, value, {}, 0), config::ReadOutcome::Value);
    return value;
}

}  // namespace tests
