#!/usr/bin/env bash
# Plants small faults one at a time and prints which tests catch each; see plant_faults.py.
exec python3 "$(dirname "$0")/plant_faults.py" "$@"
