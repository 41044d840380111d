-- The LV2 edition: loads a factory preset (its port values), sets band 1's gain through
-- its port in dB, saves the session and renders it.
dofile(os.getenv("ZT_LUA_DIR") .. "/common.lua")

run_and_finish(function()
	local session, track, equaliser = new_equaliser_session()
	load_preset(equaliser, os.getenv("ZT_PRESET"))
	wait_for_processing()
	local gain1 = tonumber(os.getenv("ZT_GAIN1"))
	ARDOUR.LuaAPI.set_processor_param(equaliser, 4, gain1)
	for attempt = 1, 100 do
		wait_for_processing()
		if plugin_value(equaliser, 4) == gain1 then break end
		ARDOUR.LuaAPI.usleep(20000)
	end
	report_values("saved", equaliser)
	assert(session:save_state("", false, false, false, false, false) == 0, "session saved")
	export_to(session, os.getenv("ZT_OUT"), "saved")
end)
