@ SPDX-License-Identifier: MIT
@ "Lantern Drift", a demo game for the Game Boy Advance: lanterns float towards us through an evening sky, in
@ a bitmap of 256 colours. The keys steer, A changes the hour of the evening, B makes haste.
@ Header, start, the turn of a picture and the keys are here; sky.inc paints the sky, lanterns.inc the rest.

	.cpu	arm7tdmi
	.arm
	.text
	.global	_start

	.equ	REGISTERS, 0x04000000	@ display control at +0, line being drawn at +6
	.equ	DMA, 0x040000D4		@ copying without the processor: source, target, length
	.equ	KEYS, 0x04000130	@ a pressed key reads as 0
	.equ	WAITS, 0x04000204	@ speed of the cartridge
	.equ	PALETTE, 0x05000000
	.equ	PAGES, 0x06000000	@ two bitmaps, 0xA000 apart, of which one is shown
	.equ	WIDE, 240
	.equ	HIGH, 160
	.equ	BACKDROP, 0x02000000	@ the painted sky, WIDE * HIGH bytes
	.equ	LANTERNS, 0x03000000	@ COUNT times: across, down, depth, unused; a word each
	.equ	COUNT, 96
	.equ	SCALE, 0x03001000	@ a word for each depth: how far from the middle one unit lies, in 1/256
	.equ	STACK, 0x03007F00

	.equ	SHOW_BITMAP, 0x0404	@ mode 4 on background 2
	.equ	SECOND_PAGE, 0x0010
	.equ	KEY_A, 0x0001
	.equ	KEY_B, 0x0002
	.equ	KEY_RIGHT, 0x0010
	.equ	KEY_LEFT, 0x0020
	.equ	KEY_UP, 0x0040
	.equ	KEY_DOWN, 0x0080

@ Registers that keep their meaning throughout:
@ r8 the hour (0 to 3), r9 the page being drawn, r10 the state of the dice, r11 the keys of the last picture.

_start:	b	start
	.space	156			@ left empty on purpose: mGBA 0.10 knows a cartridge by the branch
	.ascii	"LANTERNDRIFT"		@ title
	.ascii	"TVN000"		@ code of the game and of its maker, both free
	.byte	0x96			@ fixed by the console
	.space	9
	.byte	0			@ version
	.byte	0			@ complement, set by rom_image
	.space	2

start:	ldr	sp, =STACK
	ldr	r0, =WAITS
	ldr	r1, =0x4317		@ the quickest that cartridges keep up with, reading ahead
	str	r1, [r0]
	mov	r8, #0
	ldr	r9, =PAGES
	ldr	r10, =0x2545F491
	mov	r11, #0
	bl	paint_sky
	bl	write_title
	bl	set_hour
	bl	build_scale
	bl	light_lanterns

main:	bl	copy_backdrop
	bl	read_keys
	bl	move_lanterns
	bl	draw_lanterns
	bl	turn_page
	b	main

@ Waits for the end of the picture, then shows the page that was drawn and goes on with the other one.
turn_page:
	ldr	r0, =REGISTERS
1:	ldrh	r1, [r0, #6]
	cmp	r1, #HIGH
	bne	1b
	ldr	r1, =SHOW_BITMAP
	tst	r9, #0xA000
	orrne	r1, r1, #SECOND_PAGE
	strh	r1, [r0]
	eor	r9, r9, #0xA000
	bx	lr

@ The sky onto the page being drawn.
copy_backdrop:
	ldr	r0, =DMA
	mov	r1, #BACKDROP
	mov	r2, r9
	ldr	r3, =0x84000000 + WIDE * HIGH / 4	@ at once, in words
	stmia	r0, {r1, r2, r3}
	bx	lr

@ Returns the steering in r0 (across) and r1 (down) and the speed in r2, for move_lanterns.
read_keys:
	push	{lr}
	ldr	r3, =KEYS
	ldrh	r3, [r3]
	mvn	r3, r3
	bic	r4, r3, r11			@ newly pressed
	mov	r11, r3
	tst	r4, #KEY_A
	addne	r8, r8, #1
	andne	r8, r8, #3
	blne	set_hour
	mov	r0, #0
	mov	r1, #0
	mov	r2, #1
	tst	r11, #KEY_RIGHT
	subne	r0, r0, #3
	tst	r11, #KEY_LEFT
	addne	r0, r0, #3
	tst	r11, #KEY_UP
	addne	r1, r1, #3
	tst	r11, #KEY_DOWN
	subne	r1, r1, #3
	tst	r11, #KEY_B
	movne	r2, #4
	pop	{pc}

	.include "sky.inc"
	.include "lanterns.inc"
	.pool
