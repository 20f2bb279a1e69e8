; SPDX-License-Identifier: MIT
; "Colour Loom", a demo game for the Game Boy Color: a woven wave pattern in which 64 colours wander, and its
; title dancing over it. A changes the set of colours, Left and Right the way they wander.
	.include "hardware.inc"

; Variables, in the processor's own memory (offsets for ldh).
vPhase	= 0x80			; where the colours stand: 0 to 127, two a colour
vWay	= 0x81			; 1 or -1: the way they wander
vSet	= 0x82			; 0 or 0x80: offset of the set of colours
vKeys	= 0x83			; keys of the last picture
vColumn	= 0x84			; the tile being woven, in pixels from the corner
vRow	= 0x85
vBase	= 0x86			; the lowest level that this tile can show
vTile	= 0x87			; where it goes in video memory, two bytes
vNumber	= 0x89			; its number for the map
vCell	= 0x8A			; its place in the map, two bytes
vBank	= 0x8C			; video memory bank of its pixels: 0 or 1

WAVE	= 0xC000		; one byte for each of 256 columns, built at the start
HALF	= 180			; tiles in each of the two banks
WOVEN	= 0x8800		; first tile of the pattern; its number is 0x80

	.area CART (ABS)
	.org	0x0100
	nop
	jp	start
	; The first four bytes of the area behind the entry: mGBA 0.10 takes a file for a cartridge by these
	; and by no less. The rest of the area is left empty on purpose.
	.byte	0xCE,0xED,0x66,0x66

	.org	0x0134
	.ascii	"COLOUR LOOM"
	.byte	0,0,0,0
	.byte	0xC0		; for the colour console only
	.byte	0,0,0		; no company code, no border functions
	.byte	0x19,0x06,0	; MBC5, 2 MiB, no RAM
	.byte	1,0,0		; sold anywhere, no old company code, version 0
	.byte	0,0,0		; checksums, set by rom_image

start:
	di
	ld	sp,#STACK
	call	display_off
	call	double_speed
	call	clear_video
	ld	de,#letters
	call	load_tiles
	ld	hl,#0xFF80
	ld	bc,#16
	call	clear
	ld	a,#1
	ldh	(vWay),a
	call	build_wave
	call	weave
	call	set_title_colours
	ld	a,#0x83		; display, background and sprites on, tiles around 0x9000
	ldh	(rLCDC),a
	ld	a,#0x01		; an event at the end of each picture
	ldh	(rIE),a
main:
	call	wait_event
	call	set_colours
	call	place_title
	call	go_on
	jr	main

; The weaving at the start takes a second at single speed.
double_speed:
	ld	a,#0x30		; no key may hold up the switch
	ldh	(rP1),a
	ld	a,#0x01
	ldh	(rKEY1),a
	stop
	ret

; Background palettes: eight of four colours. A level is four colours of the set wide.
set_colours:
	ld	a,#0x80		; from the first on, counting up by itself
	ldh	(rBCPS),a
	ldh	a,(vSet)
	ld	d,a
	ldh	a,(vPhase)
	ld	e,a
	ld	h,#>colours
	ld	b,#8
1$:	ld	c,#4
2$:	ld	a,e
	and	a,#0x7E
	or	a,d
	ld	l,a
	ld	a,(hl+)
	ldh	(rBCPD),a
	ld	a,(hl)
	ldh	(rBCPD),a
	ld	a,e
	add	a,#8
	ld	e,a
	dec	c
	jr	nz,2$
	sub	a,#16		; the next palette begins two levels on, not four
	ld	e,a
	dec	b
	jr	nz,1$
	ret

; Sprite palettes: all white in their last colour, the only one that the letters have.
set_title_colours:
	ld	a,#0x80
	ldh	(rOCPS),a
	ld	c,#64
	ld	a,#0xFF
1$:	ldh	(rOCPD),a
	dec	c
	jr	nz,1$
	ret

; The letters ride on the wave, each a little behind the one before it.
place_title:
	ld	hl,#SPRITES
	ld	de,#title
	ldh	a,(vPhase)
	ld	c,a
	ld	b,#36		; column of the first letter, eight on
1$:	push	hl
	ld	h,#>WAVE
	ld	l,c
	ld	a,(hl)
	pop	hl
	sra	a
	add	a,#84		; the middle of the screen, sixteen on
	ld	(hl+),a
	ld	a,b
	ld	(hl+),a
	add	a,#10
	ld	b,a
	ld	a,c
	sub	a,#12
	ld	c,a
	ld	a,(de)
	inc	de
	ld	(hl+),a
	xor	a,a
	ld	(hl+),a
	ld	a,(de)
	or	a,a
	jr	nz,1$
	ret
title:
	.ascii	"COLOUR LOOM"
	.byte	0

; Keys, then one step of the colours.
go_on:
	call	read_keys
	ld	hl,#0xFF00+vKeys
	ld	c,(hl)
	ld	(hl),a
	ld	b,a
	ld	a,c
	cpl
	and	a,b		; only a new press of A counts
	and	a,#KEY_A
	jr	z,1$
	ldh	a,(vSet)
	xor	a,#0x80
	ldh	(vSet),a
1$:	ld	c,#1
	bit	0,b		; KEY_RIGHT
	jr	nz,2$
	ld	c,#-1
	bit	1,b		; KEY_LEFT
	jr	z,3$
2$:	ld	a,c
	ldh	(vWay),a
3$:	ldh	a,(vWay)
	ld	b,a
	ldh	a,(vPhase)
	add	a,b
	and	a,#0x7F
	ldh	(vPhase),a
	ret

	.include "loom_weave.inc"
	.include "common.inc"
letters:
	.include "letters_2.inc"

; Two sets of 64 colours, five bits each of blue, green and red; each runs back into itself.
	.org	0x1000
colours:
	.dw	0x20BD,0x1CDD,0x18FD,0x151C,0x115C,0x0D7B,0x0D9B,0x09BA
	.dw	0x05D9,0x05F8,0x0617,0x0636,0x0654,0x0653,0x0A72,0x0A90
	.dw	0x0E8F,0x12AE,0x16AC,0x1ACB,0x1ECA,0x22C8,0x26C7,0x2EC6
	.dw	0x32C5,0x3AA4,0x3EA3,0x4683,0x4A82,0x4E62,0x5641,0x5A21
	.dw	0x6221,0x6601,0x69E1,0x6DC2,0x7182,0x7563,0x7543,0x7924
	.dw	0x7D05,0x7CE6,0x7CC7,0x7CA8,0x7C8A,0x7C8B,0x786C,0x784E
	.dw	0x744F,0x7030,0x6C32,0x6813,0x6414,0x6016,0x5C17,0x5418
	.dw	0x5019,0x483A,0x443B,0x3C5B,0x385C,0x347C,0x2C9D,0x28BD
	.dw	0x3A18,0x39F8,0x39B8,0x3997,0x3956,0x3935,0x38F4,0x38D3
	.dw	0x34D2,0x34B1,0x34AF,0x30AE,0x30AD,0x30CB,0x30CA,0x34E9
	.dw	0x3508,0x3906,0x3D26,0x4525,0x4944,0x5144,0x5943,0x5D43
	.dw	0x6542,0x6922,0x6D22,0x6D22,0x6D02,0x6D02,0x6902,0x6502
	.dw	0x5D02,0x5902,0x5102,0x4902,0x4102,0x3902,0x3102,0x2D02
	.dw	0x2902,0x28E3,0x24E3,0x28E4,0x28E4,0x2CE5,0x2CE6,0x30E6
	.dw	0x3507,0x3929,0x3D4A,0x3D6B,0x418D,0x41AE,0x41EF,0x4211
	.dw	0x4232,0x4253,0x3E74,0x3E75,0x3E76,0x3A77,0x3A58,0x3A58
