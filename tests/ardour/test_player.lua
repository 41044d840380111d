ardour {
	["type"] = "dsp",
	name = "Zephyra test player",
	category = "Utility",
	license = "MIT",
	description = [[Plays the interleaved stereo samples its session script stores in its
shared memory (the frame count first), at the transport position; silence while the
transport stands.]]
}

function dsp_ioconfig ()
	return { { audio_in = 2, audio_out = 2 } }
end

function dsp_run (ins, outs, n_samples)
	local data = self:shmem():to_float(0):array()
	local frames = data[1]
	local rolling = Session:transport_rolling()
	local start = Session:transport_sample()
	for c = 1, 2 do
		local out = outs[c]:array()
		for i = 1, n_samples do
			local frame = start + i - 1
			if rolling and frame < frames then
				out[i] = data[2 + 2 * frame + c - 1]
			else
				out[i] = 0
			end
		end
	end
end
