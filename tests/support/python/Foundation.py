"""Keeps a record of what a plug-in registers."""

sounds = []


class SoundDef:
    def __init__(self, file, name, volume=1.0):
        sounds.append([file, name, volume])
