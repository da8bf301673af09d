#!/bin/sh
# Runs one test program on a private X display with a window manager, so that a newly started
# window takes the keyboard focus as it does on a desktop.
exec xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" sh -c 'openbox >/dev/null 2>&1 & sleep 0.5; QT_QPA_PLATFORM=xcb "$@"; rc=$?; kill %1 2>/dev/null; exit $rc' run-xvfb "$@"
