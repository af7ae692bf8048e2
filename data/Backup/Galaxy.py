# The script of a ship. A new ship's script is made of this one by putting the new name wherever
# the name of this ship stands: the model then lies in data/Models/Ships/<name>/, with the files
# <name>.nif, <name>Med.nif and <name>Low.nif, and the hardpoints in
# scripts/ships/Hardpoints/<name>.py.

import App
import Multiplayer.SpeciesToShip

def GetShipStats():
	# Each text stands in double quotes, with the comma directly behind them.
	return {
		"FilenameHigh": "data/Models/Ships/Galaxy/Galaxy.nif",
		"FilenameMed": "data/Models/Ships/Galaxy/GalaxyMed.nif",
		"FilenameLow": "data/Models/Ships/Galaxy/GalaxyLow.nif",
		"Name": "Galaxy",
		"HardpointFile": "Galaxy",
		"Species": Multiplayer.SpeciesToShip.GALAXY,
	}

def LoadModel(bPreLoad = 0):
	stats = GetShipStats()
	models = App.g_kLODModelManager
	if models.Contains(stats["Name"]):
		return

	# The model of each level of detail, the size of a leaf for picking, and the distance up to
	# which the level is shown; then the grain of damage outside and inside, what burns, what
	# makes a hole, and the endings of the textures for glow and shine.
	model = models.Create(stats["Name"])
	model.AddLOD(stats["FilenameHigh"], 10, 200.0, 15.0, 15.0, 400, 900, "_glow", None, "_specular")
	model.AddLOD(stats["FilenameMed"], 10, 400.0, 15.0, 15.0, 400, 900, "_glow", None, "_specular")
	model.AddLOD(stats["FilenameLow"], 10, 800.0, 15.0, 30.0, 400, 900, "_glow", None, None)

	if bPreLoad:
		model.LoadIncremental()
	else:
		model.Load()

def PreLoadModel():
	LoadModel(1)
