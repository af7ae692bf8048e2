"""Stands in for the game's script system: it remembers what a ship plug-in registers."""


class KeyList(dict):
    """A dictionary of the game's Python, which is older than ours."""

    def has_key(self, key):
        return key in self


class ShipList:
    def __init__(self):
        self._keyList = KeyList()

    def __getitem__(self, name):
        return self._keyList[name]


shipList = ShipList()


class ShipDef:
    def __init__(self, abbrev, species, details):
        self.abbrev = abbrev
        self.species = species
        self.details = details
        self.menus = []
        self.friendlyDetails = ["new", "new", "new"]
        self.enemyDetails = ["new", "new", "new"]

    def RegisterQBShipMenu(self, menu):
        self.menus.append("menu " + menu)

    def RegisterQBPlayerShipMenu(self, menu):
        self.menus.append("player menu " + menu)


class FedShipDef(ShipDef):
    pass


class KlingonShipDef(ShipDef):
    pass


class RomulanShipDef(ShipDef):
    pass


class FerengiShipDef(ShipDef):
    pass


class CardShipDef(ShipDef):
    pass


class KessokShipDef(ShipDef):
    pass


class StarBaseDef(ShipDef):
    pass


sounds = []


class SoundDef:
    def __init__(self, file, name, volume=1.0):
        sounds.append([file, name, volume])
