"""Stands in for the numbers of the ships' kinds."""

GALAXY = 1
