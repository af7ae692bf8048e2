"""Runs a script of the game and tells what it did: run.py plugin|ship FILE NAME."""

import sys

import App
import Foundation

kind, file, name = sys.argv[1:]
with open(file, encoding="cp1252", newline="") as script:
    code = compile(script.read(), file, "exec")


def run_plugin():
    # The ship is known already, with details of its own, as after another plug-in.
    known = Foundation.ShipDef("", 0, {})
    known.friendlyDetails[2] = known.enemyDetails[2] = "known"
    Foundation.shipList._keyList[name] = known
    scope = {}
    exec(code, scope)
    ship = getattr(Foundation.ShipDef, name)
    yield type(ship).__name__
    yield "%s %s %s" % (ship.abbrev, ship.species, sorted(ship.details.items()))
    yield from ship.menus
    if hasattr(ship, "hasTGLName"):
        yield "texts of the game: %s %s" % (ship.hasTGLName, ship.hasTGLDesc)
    else:
        yield ship.desc
    yield "%s %s" % (ship.friendlyDetails, ship.enemyDetails)
    yield str(sorted(scope["credits"].items()))


def run_ship():
    scope = {}
    exec(code, scope)
    yield str(sorted(scope["GetShipStats"]().items()))
    scope["PreLoadModel"]()
    scope["LoadModel"]()
    for model, made in App.g_kLODModelManager.models.items():
        yield "%s: %s" % (model, made.calls)
    App.g_kLODModelManager.models.clear()
    scope["LoadModel"]()
    yield App.g_kLODModelManager.models[name].calls[-1]


sys.stdout.reconfigure(encoding="utf-8")
for line in {"plugin": run_plugin, "ship": run_ship}[kind]():
    print(line)
