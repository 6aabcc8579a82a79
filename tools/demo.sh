# Sourced by the project's commands: the editor on the demo configuration, beside the stand-in for the cryptographic
# library.

build_demo() {
    cmake --preset windows >/dev/null
    cmake --build --preset windows --target brisgate brisgate-registry brisgate-wait morcel1 "$@"
}

# place_demo FOLDER seed|seed-once: a copy of the editor and the stand-in, which must never lie beside the product
# itself; with seed-once the certificates that are served stay as they were changed there.
place_demo() {
    mkdir -p "$1"
    cp build/windows/brisgate.exe build/windows/demo/morcel1.dll "$1/"
    if [ "$2" = seed ] || [ ! -f "$1/stand-in-owners.txt" ]; then cp demo/owners.txt "$1/stand-in-owners.txt"; fi
}

# put_demo_in seed|seed-once: the configuration and its folders, in the prefix in use.
put_demo_in() {
    wine build/windows/tools/brisgate-registry.exe "$1" demo/configuration.txt
    sed -nE 's/^(Path .*|LogPath|C0) = "C:(\\Exchange\\.*)"$/\2/p' demo/configuration.txt | tr '\\' / |
        while read -r folder; do mkdir -p "$WINEPREFIX/drive_c$folder"; done
}
