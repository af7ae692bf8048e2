#######################################################################################
#  Custom Weapon Sound Plugin                                                         #
#  Created by Tarvo Packager                                                          #
#  Date: 1/2/2003                                                                    #
#######################################################################################
#                                                                                     #
import Foundation
import App
#                                                                                     #
#######################################################################################
#                                                                                     #
Foundation.SoundDef("sfx/Weapons/phaser1.wav", "Galaxy Phaser Start", 1)
Foundation.SoundDef("sfx/Weapons/phaser2.wav", "Galaxy Phaser Loop", 1)
Foundation.SoundDef("sfx/Weapons/torp.wav", "Klingon Torpedo", 0.8)
#                                                                                     #
#######################################################################################
