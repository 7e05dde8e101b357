"""window.py FOLDER: the window imports all loops of the pedal into FOLDER."""

import sys

from driver import Program, choose, key, wait

with Program(simulate=None) as program:
    program.ready()
    program.get("7306 · 3 loops · firmware .*")
    key("ctrl+a")
    button = program.get("Import", "push button")
    wait("import is possible", lambda: button.enabled)
    button.click()
    choose(program, sys.argv[1])
    print("the window says:", program.get("3 loops saved in .*|Failed: .*", "push button").name)
    program.terminate()
    print("it ends with", program.wait_end(30)[0])
