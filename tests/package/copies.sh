# Sourced by the check of the packages: backup.cmd and restore.cmd beside the installed program. Needs fail, wine with a
# configuration, $tools, $installed, $work and $title.

service='HKLM\SOFTWARE\TALVERON\morcelservice'
record='HKLM\SOFTWARE\TALVERON\morcelservice editor'
user='HKCU\SOFTWARE\TALVERON\morcel'
copies="$WINEPREFIX/drive_c/copies (old) & new"
one='C:\copies (old) & new\one'
two='C:\copies (old) & new\two'

dump() { wine $tools/brisgate-registry.exe dump; }
script() { # script NAME [FOLDER]: what it says, in $said, and its exit code, in $code; the answer comes from $answer
    code=0
    said=$(cd "$copies" && printf '%s\r\n' "${answer:-}" |
        WINEPATH=$(winepath --windows "$installed") wine cmd /c "$1.cmd" "${@:2}" | tr -d '\r') || code=$?
}
says() { # says CODE TEXT: how the script ended, and a part of what it said
    [ "$code" = "$1" ] || fail "exit code $code, not $1: $said"
    [[ $said == *"$2"* ]] || fail "not said: $2; but: $said"
}
unchanged() { dump | cmp - "$work/now.txt" || fail "something has changed: $1"; }
is_as_saved() { dump | cmp - "$work/saved.txt" || fail "not as it was copied: $1"; }
# The name of the folder that holds what was there before.
safety_copy() { sed -n 's/.*The present configuration is in .*\\\([0-9]*\)\.$/\1/p' <<<"$said"; }
# What a copy looks like whose file holds these lines, each with CR LF.
false_copy() { # false_copy FILE LINE...
    rm -rf "$copies/two" && mkdir "$copies/two"
    printf '%s\r\n' "${@:2}" >"$copies/two/$1"
    printf '%s %s\r\n' "$1" "$(stat -c %s "$copies/two/$1")" >"$copies/two/backup.txt"
}

mkdir "$copies"
dump >"$work/saved.txt"
script backup "$one"
says 0 "The configuration is in $one."
[ "$(cd "$copies/one" && ls | tr '\n' ' ')" = "backup.txt service.reg user.reg " ] || fail "the copy holds $(ls "$copies/one")"
script backup "$one"
says 1 "There is a copy in $one already."
wine reg add 'HKCU\Control Panel\International' /v sShortDate /d "dddd, d. MMMM 'of' yyyy" /f >/dev/null
script backup
[ "$code" = 0 ] || fail "no copy in the current folder: $said"
by_date=$(cd "$copies" && ls | grep -v one)
[[ $by_date =~ ^[0-9]{8,}$ ]] || fail "the copy is called $by_date"
cmp "$copies/one/service.reg" "$copies/$by_date/service.reg"

wine "$installed/brisgate.exe" &
program=$!
wine $tools/brisgate-wait.exe "$title" 60 || fail "no window"
script restore "$one"
says 1 "Close the program first"
wine taskkill /im brisgate.exe >/dev/null
timeout 30 tail --pid=$program -f /dev/null || fail "the program does not end"

# Later changes: another value, a new profile, a new value of the user, a record of an unfinished save.
wine reg add "$service" /v SigExt /d later /f >/dev/null
wine reg add "$service\\Profiles\\Later\\Rule 0" /v Operation /d MOVE /f >/dev/null
wine reg add "$user\\store\\2" /v name /d later /f >/dev/null
wine reg add "$user\\store\\2" /v new /d later /f >/dev/null
wine reg add "$record" /v 'Unfinished save' /t REG_BINARY /d 00 /f >/dev/null
dump >"$work/now.txt"

for refusal in '' n Yes 'Y Y' '"'; do
    answer=$refusal script restore "$one"
    says 1 "Nothing has been changed."
    unchanged "the answer was '$refusal'"
done
script restore
says 1 "Name the folder of the copy"
script restore 'C:\copies (old) & new\none'
says 1 "There is no copy of a configuration in C:\\copies (old) & new\\none."

answer=Y
cp -R "$copies/one" "$copies/two" && rm "$copies/two/user.reg"
script restore "$two"
says 1 "The file $two\\user.reg is missing."
cp "$copies/one/service.reg" "$copies/two/user.reg"
script restore "$two"
says 1 "The file $two\\user.reg is not the one that backup.cmd has written."
for key in 'HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice editor' 'HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcelservice' \
    'HKEY_LOCAL_MACHINE\SOFTWARE' '-HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Profiles'; do
    false_copy service.reg 'Windows Registry Editor Version 5.00' '' "[$key]" '"a"="b"'
    script restore "$two"
    says 1 "The file $two\\service.reg holds keys that do not belong to the configuration."
done
unchanged "the files were refused"


false_copy service.reg 'no file of the registry'
script restore "$two"
says 1 "The configuration cannot be imported; what was there before is back."
unchanged "the import failed"
[ -f "$copies/$(safety_copy)/unfinished.reg" ] || fail "the record of the unfinished save was not kept"

for answer in y Y; do
    script restore "$one"
    says 0 "The configuration has been restored."
    safe=$(safety_copy)
    [ -f "$copies/$safe/service.reg" ] || fail "no copy of the state before: $said"
    wine reg query "$user\\store\\2" /v new >/dev/null || fail "a value of the user's that the copy does not have is gone"
    wine reg delete "$user\\store\\2" /v new /f >/dev/null
    is_as_saved "$answer"
    script restore "C:\\copies (old) & new\\$safe"
    says 0 "The configuration has been restored."
    [ "$(dump | grep -c later)" -ge 2 ] || fail "the copy of the state before does not bring it back"
done

echo "... where there is no configuration"
wine reg delete "$service" /f >/dev/null
script backup 'C:\copies (old) & new\none'
says 1 "There is no configuration on this machine."
false_copy service.reg 'no file of the registry'
script restore "$two"
says 1 "The configuration cannot be imported; there is none on this machine, as before."
script restore "$one"
says 0 "The configuration has been restored."
[ -z "$(safety_copy)" ] || fail "a copy of nothing"
wine reg delete "$user\\store\\2" /v new /f >/dev/null
is_as_saved "without a configuration before"
rm -rf "$copies"
