; SPDX-License-Identifier: MIT
; "Day Garden", the same garden by daylight; it is the game inside the demo archive.
DAY	= 1
	.include "garden.inc"
