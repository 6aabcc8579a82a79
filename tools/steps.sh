# Sourced by commands that consist of steps: says which one begins, and at the end which ones took longest.

step_names=()
step_starts=()

# step NAME: begins the next step.
step() {
    step_names+=("$*")
    step_starts+=("$SECONDS")
    printf '\n== %s (after %s s)\n' "$*" "$SECONDS"
}

# slowest_steps: the ten that took longest, in seconds; to be called after the last one.
slowest_steps() {
    local number
    step_starts+=("$SECONDS")
    echo "The slowest steps, in seconds:"
    for number in "${!step_names[@]}"; do
        printf '%6d  %s\n' $((step_starts[number + 1] - step_starts[number])) "${step_names[number]}"
    done | sort -rn | head -n 10
}
