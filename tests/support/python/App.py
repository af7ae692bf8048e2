"""What plug-ins import beside Foundation; a sound plug-in uses nothing of it."""
