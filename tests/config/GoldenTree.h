// A configuration in which no value is a default, as it lies in the registry; GoldenModel.h has it as
// records.
#pragma once

#include <string>

namespace tests {

// What the library keeps for the user.
inline const std::string GoldenLibrary = R"([HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel\Profiles\1]
ProfileName = "Bank keys"
store_0 = "pse://signed/D:\Bank\local.pse"
store_1 = "file://D:\Bank\local.gdbm"
BasePath = "D:\Not used"

[HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel\Profiles\2]
ProfileName = "Archive keys"
BasePath = "C:\Keys"

[HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel\store\2]
name = "ldap://directory.example:389"

)";

// What the service reads, exactly as a save writes it.
inline const std::string GoldenService = R"([HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice]
Window_top = 11
Window_bottom = 722
Window_left = 33
Window_right = 1244
SigExt = "s1"
DsigExt = "s2"
EncExt = "s3"
B64Ext = "s4"
HashExt = "s5"
VerifyFileExt = "s6"
ZIPArchiveExt = "s7"
GZIPArchiveExt = "s8"
ExtExt = { "csv", "edi" }
LogPath = "D:\Log"
Log filesize = 8000
LDAP = "ldap://directory.example:389"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Exchange]
ServerTSP = { "http://tsp.example", "0" }
ZCSProfile = { "Bank keys", "Archive keys" }
NotUseLDAP = { "1", "0" }
NotCopyToLocal = { "0", "1" }
AutoUseTSP = { "1", "1" }
AutoVerifyTSP = { "0", "2" }
NoTSPisError = { "1", "3" }
UseAIA = { "4", "0" }
NotAddCert = { "5", "1" }
NotLoadCrl = { "1", "6" }
CrlUpdatePeriod = { "24", "168" }
Verify File = 1
Verify x file = 2
Verify det file = 3
Verify resign file = 4
Handler timeout = 60
Rename conf files = 1

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Exchange\rules\Rule 0]
Operation = "RESG"
Path In = "C:\In"
Path Out = "C:\Out"
Path Out 2 = "C:\Out2"
Path Error = "C:\Error"
DelExt = "del"
AddExt = "add"
Folders = "%Y"
Copyfolders = "%M"
ArchCount = 21
ArchSize = 22
ArchTimeout = 23
ArchName = "arch"
ExecName = "C:\run.exe"
ExecTimeout = 24
Mask num = 2
M0 = "*.xml"
M1 = "*.edi"
Ext num = 2
C0 = "CN=First, O=""Bank"""
C1 = "CN=Second"
Is on = 1
ZCSProfile = "Bank keys"
ResignProfile = "Archive keys"
In format det = 1
Out format det = 2
Descryption = "Отчёты 😀"
ZipFile = 2
PSE = "pse://signed/D:\Bank\local.pse"
LOCAL = "file://D:\Bank\local.gdbm"
PSE2 = "pse://signed/C:\Keys\local.pse"
LOCAL2 = "file://C:\Keys\local.gdbm"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Exchange\rules\Rule 0\Chiefs]
Signer Num = 2
S0 = "CN=Chief"
S1 = "CN=Deputy"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Exchange\rules\Rule 0\Nobody]
Signer Num = 0

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Exchange\rules\Rule 1]
Operation = "EXEC"
Path In = "E:\In"
Path Out = "E:\Out"
Path Out 2 = "E:\Out2"
Path Error = "E:\Error"
DelExt = "d"
AddExt = "a"
Folders = "%D"
Copyfolders = "%H"
ArchCount = 31
ArchSize = 32
ArchTimeout = 33
ArchName = "a.zip"
ExecName = "E:\run.exe"
ExecTimeout = 34
Mask num = 1
M0 = "*.*"
Ext num = 1
C0 = "CN=Third"
Is on = 1
ZCSProfile = "Archive keys"
ResignProfile = "Bank keys"
In format det = 3
Out format det = 4
Descryption = "Run"
ZipFile = 1
PSE = "pse://signed/C:\Keys\local.pse"
LOCAL = "file://C:\Keys\local.gdbm"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Exchange\rules\Rule 1\Auditors]
Signer Num = 1
S0 = "CN=Auditor"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Exchange\rules\Rule 2]
Operation = "DELE"
Path In = ""
Path Out = ""
Path Out 2 = ""
Path Error = ""
DelExt = ""
AddExt = ""
Folders = ""
Copyfolders = ""
ArchCount = 0
ArchSize = 0
ArchTimeout = 0
ArchName = ""
ExecName = ""
ExecTimeout = 0
Mask num = 1
M0 = ""
Ext num = 0
Is on = 0
ZCSProfile = ""
ResignProfile = ""
In format det = 0
Out format det = 0
Descryption = ""
ZipFile = 0

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Reports]
ServerTSP = {}
ZCSProfile = {}
NotUseLDAP = {}
NotCopyToLocal = {}
AutoUseTSP = {}
AutoVerifyTSP = {}
NoTSPisError = {}
UseAIA = {}
NotAddCert = {}
NotLoadCrl = {}
CrlUpdatePeriod = {}
Verify File = 0
Verify x file = 0
Verify det file = 0
Verify resign file = 0
Handler timeout = 15
Rename conf files = 0

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Reports\rules]
)";

inline const std::string GoldenTrees = GoldenLibrary + GoldenService;

}  // namespace tests
