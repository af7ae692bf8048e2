"""Stands in for the game: it remembers the models that a ship script asks for."""

SPECIES_GALAXY = 101


class Model:
    def __init__(self):
        self.calls = []

    def AddLOD(self, file, *rest):
        self.calls.append("level " + file)

    def Load(self):
        self.calls.append("load")

    def LoadIncremental(self):
        self.calls.append("load bit by bit")


class ModelManager:
    def __init__(self):
        self.models = {}

    def Contains(self, name):
        return name in self.models

    def Create(self, name):
        self.models[name] = Model()
        return self.models[name]


g_kLODModelManager = ModelManager()
