; SPDX-License-Identifier: MIT
; "Night Garden", a demo game for the Game Boy: the garden with its night sky. All else is in garden.inc.
DAY	= 0
	.include "garden.inc"
